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

/// What happens to the program after an error that no handler has dealt with.
enum class AfterError : bool {
    GoOn, ///< one request failed
    End,  ///< the program can't continue, or shouldn't
};

/// Tells the user of such an error, and that the program ends, if it does.
void ReportUnhandled(
    const runtime::RuntimeError& failure, AfterError then, shell::MessageDoor& messages);

} // namespace velmora::wizard
