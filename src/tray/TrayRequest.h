// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/Recorders.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <variant>

namespace velmora::tray {

/// How a command ended, as its caller sees it.
enum class TrayExit : std::uint8_t {
    Done = 0,
    Failed = 1,     ///< nothing was changed, or the tray stayed open
    WrongUsage = 2, ///< the command line can't be understood
};

/// A command line that needs no recorder: a text to show and how to end.
struct TrayReply {
    TrayExit code; ///< Done for help and version, WrongUsage for a mistake
    QString text;  ///< French, several lines
};

struct Create {
    QString name; ///< empty: one that is free
    bool realTiming = false;
};
/// The recorder that the request names, with the disc in it.
struct Delete {
    bool isAgreed = false; ///< nobody is asked
};
struct List { };
struct Insert {
    virtualdrive::DiscOrder order;
};
struct TakeOut { };
struct Eject { };
struct Close { };
struct PlanFault {
    virtualdrive::Fault fault;
};
/// Unplug the drive, or plug it in.
struct Plug {
    bool isPlugged = true;
};
struct ClearFaults { };
struct Timing {
    bool isReal = false;
};
struct Show { };

/// Something to do with a recorder.
struct TrayRequest {
    QString recorder; ///< empty: the only one
    std::variant<Create,
        Delete,
        List,
        Insert,
        TakeOut,
        Eject,
        Close,
        PlanFault,
        Plug,
        ClearFaults,
        Timing,
        Show>
        action;
};

} // namespace velmora::tray
