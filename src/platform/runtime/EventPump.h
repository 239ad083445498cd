// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::runtime {

/// The door to the event loop: lets the user's clicks and the windows' repaints in while a long
/// routine runs.
class EventPump {
public:
    EventPump() = default;
    EventPump(const EventPump&) = delete;
    EventPump& operator=(const EventPump&) = delete;
    virtual ~EventPump() = default;

    /// Handles the pending events, and returns at once when there are none.
    virtual void Pump() = 0;
};

/// Pumps count + 1 times, and not at all for a negative count.
void PumpEvents(EventPump& pump, qint16 count = 0);

/// Pumps Qt's event loop.
class SystemEventPump final : public EventPump {
public:
    void Pump() override;
};

} // namespace velmora::runtime
