// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/EditingDialogs.h"

class QWidget;

namespace velmora::compilation {
class CompilationList;
}
namespace velmora::desktop {
class FileChooser;
}
namespace velmora::dialogs {
class CommonDialog;
}

namespace velmora::wizard {

/// The dialogs that edit the compilation, over the window.
class EditingDialogsView final : public compilation::EditingDialogs {
public:
    /// All of it must outlive the view.
    EditingDialogsView(QWidget& window,
        dialogs::CommonDialog& CommonDialog1,
        desktop::FileChooser& chooser,
        const compilation::CompilationList& ListFile);

    QString ShowOpen(const compilation::AddFilesDialog& dialog) override;
    text::ProgramPath BrowseForFolder(const QString& title) override;
    text::DiscPath AskNewDirectory() override;
    void StartExplorer() override;

private:
    QWidget& window_;
    dialogs::CommonDialog& CommonDialog1_;
    desktop::FileChooser& chooser_;
    const compilation::CompilationList& ListFile_;
};

} // namespace velmora::wizard
