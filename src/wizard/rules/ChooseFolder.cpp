// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/ChooseFolder.h"

#include "dialogs/CmnDialogEx.h"
#include "runtime/TextRules.h"
#include "shell/modCorvaneRegSettings.h"
#include "text/PathText.h"

#include <QStandardPaths>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kNewStyleWithHints = 832;

/// The folder of documents, until a folder is remembered.
QString Documents()
{
    if (qEnvironmentVariableIsSet("USERPROFILE")) {
        return text::ToProgramPath(text::NativePath(qgetenv("USERPROFILE").toStdString())).Text()
            + u"\\Documents"_s;
    }
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return text::FromQtPath(folder).Text();
}

} // namespace

text::ProgramPath ChooseFolder(desktop::FileChooser& chooser, store::SettingsStore& settings)
{
    dialogs::CmnDialogEx dialog(chooser);
    dialog.Clear();
    dialog.SetInitDir(
        shell::GetRegString(settings, u"Velmora"_s, u"Data"_s, u"LastDir"_s, Documents()));
    if (dialog.InitDir().IsEmpty()) {
        dialog.SetInitDir(Documents());
    }
    dialog.FlagsFolderBrowsing = kNewStyleWithHints;
    dialog.DialogTitle = u"Sélectionnez un dossier à Graver"_s;
    if (!dialog.ShowBrowseForFolder()) {
        return {};
    }
    const QString folder = runtime::Split(dialog.FileName.Text(), QChar(u'\0')).value(0);
    shell::SaveRegString(settings, u"Velmora"_s, u"Data"_s, u"LastDir"_s, folder);
    return text::ProgramPath(folder);
}

} // namespace velmora::wizard
