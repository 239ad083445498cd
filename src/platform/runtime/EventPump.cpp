// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/EventPump.h"

#include <QCoreApplication>

namespace velmora::runtime {

void PumpEvents(EventPump& pump, qint16 count)
{
    for (int pass = 0; pass <= count; ++pass) {
        pump.Pump();
    }
}

void SystemEventPump::Pump() { QCoreApplication::processEvents(); }

} // namespace velmora::runtime
