// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::desktop {
class FileChooser;
}
namespace velmora::shell {
class MessageDoor;
}

namespace velmora::wizard {

/// A text that the user may want to save as a file.
struct SavedText {
    QString title {};    ///< of the dialog
    QString fileName {}; ///< on offer
    QString text {};     ///< lines end in a line feed
};

/// Asks where, and writes the text there as UTF-8: all of it, or nothing. It asks before it
/// overwrites a file, and reports failures.
void SaveText(
    desktop::FileChooser& chooser, shell::MessageDoor& messages, const SavedText& savedText);

} // namespace velmora::wizard
