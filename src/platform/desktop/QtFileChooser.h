// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/FileChooser.h"

namespace velmora::desktop {

/// Whose dialogs are shown.
enum class DialogsOf : bool { Program, Desktop };

/// Dialogs that are alike on every desktop: they also accept a typed name that doesn't exist yet,
/// which the desktops' own open dialogs refuse. In a sandbox the desktop's dialogs are used, as
/// only they can reach the user's files.
class QtFileChooser final : public FileChooser {
public:
    QtFileChooser();
    explicit QtFileChooser(DialogsOf owner)
        : owner_(owner)
    {
    }

    QList<text::ProgramPath> AskFiles(const FileQuestion& question) override;
    text::ProgramPath AskFolder(const FolderQuestion& question) override;

private:
    DialogsOf owner_;
};

} // namespace velmora::desktop
