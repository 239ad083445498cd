// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/FileChooser.h"

namespace velmora::desktop {

/// Dialogs that are alike on every desktop: a name that is typed and doesn't exist yet is an answer
/// too, which the desktops' own open dialogs refuse.
class QtFileChooser final : public FileChooser {
public:
    QStringList AskFiles(const FileQuestion& question) override;
    QString AskFolder(const FolderQuestion& question) override;
};

} // namespace velmora::desktop
