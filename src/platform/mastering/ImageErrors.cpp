// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/ImageErrors.h"

#include "runtime/RuntimeError.h"

#include <QString>

namespace velmora::mastering {

void Raise(const image::Error& failure)
{
    throw runtime::RuntimeError(runtime::MapHresult(image::PublishedNumber(failure.kind)),
        QString::fromStdString(image::Describe(failure)));
}

} // namespace velmora::mastering
