// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <functional>

namespace velmora::shell {
class MessageDoor;
}

namespace velmora::dialogs {

class CommonDialog;

/// Asks for the ISO file to write (SaveMode) or to burn. An existing file to write is deleted at
/// once when the user agrees to replace it; otherwise, and if the file is a source of the image,
/// the dialog is shown again. Leaves CancelError of the dialog on.
/// @return empty when the user cancelled or anything failed
/// @param isSource  whether a file goes into the image that is written
text::ProgramPath GetIsoFileName(CommonDialog& CommonDialog1,
    shell::MessageDoor& messages,
    bool SaveMode,
    const std::function<bool(const text::ProgramPath& file)>& isSource);

} // namespace velmora::dialogs
