// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/StartUp.h"

#include "compilation/Compilation.h"
#include "recorder/EnumerateRecorders.h"
#include "recorder/RecorderState.h"
#include "shell/CommandString.h"
#include "shell/PathHelpers.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "shell/TemporaryChoice.h"
#include "text/PathText.h"
#include "wizard/rules/Navigation.h"
#include "wizard/rules/StartScreen.h"

#include <filesystem>
#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

namespace style = shell::message_style;

constexpr double kCapacityBeforeAnyChoice = 26843545600;

/// "." has no last component to name a disc after, so a folder is known by its whole path.
QString WholePath(const QString& folder)
{
    namespace fs = std::filesystem;
    if (folder.isEmpty() || folder.startsWith(u'\\')) {
        return folder;
    }
    const fs::path native(text::ToNativePath(folder));
    return text::ToProgramPath(fs::absolute(native).lexically_normal().native());
}

} // namespace

StartUp::StartUp(StartDoors doors)
    : doors_(std::move(doors))
{
}

bool StartUp::Form_Load(const shell::CommandString& command)
{
    if (!FindFolder(command)) {
        return false;
    }
    ShowFolder();
    FirstActivation_ = true;
    ListRecorders();
    SetUpWindow();
    doors_.state.MediaCapacity = kCapacityBeforeAnyChoice;
    if (!doors_.compilation.LoadFolder(doors_.state.SourceFolder)) {
        return false;
    }
    const bool isNamed = !command.DiscNameArgument.isEmpty();
    doors_.screen.SetDiscName(isNamed ? command.DiscNameArgument : doors_.state.DefaultDiscName);
    return true;
}

bool StartUp::FindFolder(const shell::CommandString& command)
{
    doors_.state.SourceFolder = WholePath(command.SourceFolder);
    if (doors_.state.SourceFolder.isEmpty()) {
        doors_.state.SourceFolder = doors_.ChooseFolder();
    }
    return !doors_.state.SourceFolder.isEmpty();
}

void StartUp::ShowFolder()
{
    doors_.screen.SetCaption(u"Velmora"_s);
    doors_.state.DefaultDiscName = shell::DefaultDiscNameOf(doors_.state.SourceFolder);
    doors_.screen.SetlblDossier(doors_.screen.lblDossier() + u"\r\n"_s
        + text::MachinePathForTheEye(doors_.state.SourceFolder));
}

void StartUp::ListRecorders()
{
    const qint16 count = recorder::EnumerateRecorders(doors_.recorders, doors_.mastering);
    doors_.screen.ClearCombo1();
    NoRecorder_ = count <= 0;
    if (NoRecorder_) {
        return;
    }
    for (qint16 i = 0; i < count; ++i) {
        const auto& record = doors_.recorders.RecorderList.at(static_cast<std::size_t>(i));
        doors_.screen.AddToCombo1(recorder::RecorderItemText(record));
    }
    SelectRemembered();
}

void StartUp::SelectRemembered()
{
    const QString remembered
        = shell::GetSetting(doors_.settings, u"Velmora"_s, u"Drive"_s, u"Default"_s, {});
    for (qint16 i = 0; i < doors_.screen.Combo1ListCount(); ++i) {
        if (doors_.screen.Combo1List(i) == remembered) {
            doors_.screen.SetCombo1ListIndex(i);
        }
    }
    if (doors_.screen.Combo1ListIndex() < 0) {
        doors_.screen.SetCombo1ListIndex(0);
    }
}

void StartUp::SetUpWindow()
{
    doors_.screen.SetRepTempTxt(shell::TempDirSetting(doors_.settings));
    doors_.navigation.ResetContainer();
    doors_.navigation.Setselectedtab(1);
    doors_.screen.CreateSysImageList();
    doors_.screen.SetUpListFile();
}

bool StartUp::Form_Activate()
{
    if (!std::exchange(FirstActivation_, false) || !NoRecorder_) {
        return true;
    }
    doors_.screen.MsgBox(u"Votre système ne semble pas posséder de graveur compatible. "_s,
        style::kExclamation,
        u"Velmora"_s);
    return false;
}

} // namespace velmora::wizard
