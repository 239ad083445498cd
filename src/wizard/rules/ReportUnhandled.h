// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::runtime {
class RuntimeError;
}
namespace velmora::shell {
class MessageDoor;
}

namespace velmora::wizard {

/// What becomes of the program after an error that no handler has taken care of.
enum class AfterError : bool {
    GoOn, ///< one wish was not granted
    End,  ///< the program can't go on, or isn't meant to
};

/// Tells the user of such an error, and that the program ends, if it does.
void ReportUnhandled(
    const runtime::RuntimeError& failure, AfterError then, shell::MessageDoor& messages);

} // namespace velmora::wizard
