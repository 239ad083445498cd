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

/// Tells the user of an error that no handler has taken care of. The program ends after it.
void ReportUnhandled(const runtime::RuntimeError& failure, shell::MessageDoor& messages);

} // namespace velmora::wizard
