// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::shell {
class MessageDoor;
}

namespace velmora::dialogs {

class CommonDialog;

/// Asks for the ISO file to write (SaveMode) or to burn. A file to write that exists already is
/// deleted at once when the user agrees to replace it; the dialog comes again when not.
/// Leaves CancelError of the dialog on.
/// @return its program path; empty when the user gave up or anything failed
QString GetIsoFileName(CommonDialog& CommonDialog1, shell::MessageDoor& messages, bool SaveMode);

} // namespace velmora::dialogs
