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

/// A text that a person may want to keep as a file.
struct SavedText {
    QString title {};    ///< of the dialog
    QString fileName {}; ///< on offer
    QString text {};     ///< lines end in a line feed
};

/// Asks where, and writes the text there as UTF-8: all of it, or nothing. A file that is there
/// already is asked about; what goes wrong is told.
void SaveText(
    desktop::FileChooser& chooser, shell::MessageDoor& messages, const SavedText& savedText);

} // namespace velmora::wizard
