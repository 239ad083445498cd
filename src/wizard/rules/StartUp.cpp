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
#include <system_error>
#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using text::ProgramPath;

namespace {

namespace style = shell::message_style;

/// "." has no last component to name a disc after, so a folder is known by its whole path.
ProgramPath WholePath(const ProgramPath& folder)
{
    namespace fs = std::filesystem;
    if (folder.IsEmpty() || folder.Text().startsWith(u'\\')) {
        return folder;
    }
    const fs::path native(text::ToNativePath(folder).Bytes());
    std::error_code unknown; // the current folder may be gone
    const fs::path whole = fs::absolute(native, unknown);
    return unknown ? folder
                   : text::ToProgramPath(text::NativePath(whole.lexically_normal().native()));
}

} // namespace

StartUp::StartUp(StartContext context)
    : context_(std::move(context))
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
    SetUpWindow(Tab::DataDisc);
    context_.state.MediaCapacity = shell::kCapacityBeforeAnyChoice;
    if (!context_.compilation.LoadFolder(context_.state.SourceFolder)) {
        return false;
    }
    const bool isNamed = !command.DiscNameArgument.isEmpty();
    context_.screen.SetDiscName(
        isNamed ? command.DiscNameArgument : context_.state.DefaultDiscName);
    return true;
}

bool StartUp::FindFolder(const shell::CommandString& command)
{
    context_.state.SourceFolder = WholePath(command.SourceFolder);
    if (context_.state.SourceFolder.IsEmpty()) {
        context_.state.SourceFolder = context_.ChooseFolder();
    }
    return !context_.state.SourceFolder.IsEmpty();
}

void StartUp::ShowFolder()
{
    context_.screen.SetCaption(u"Velmora"_s);
    context_.state.DefaultDiscName = shell::DefaultDiscNameOf(context_.state.SourceFolder.Text());
    context_.screen.ShowFolder(context_.screen.FolderText() + u"\r\n"_s
        + text::MachinePathForTheEye(context_.state.SourceFolder));
}

void StartUp::ListRecorders()
{
    const qint16 count = recorder::EnumerateRecorders(context_.recorders, context_.mastering);
    context_.screen.ClearRecorders();
    NoRecorder_ = count <= 0;
    if (NoRecorder_) {
        return;
    }
    for (qint16 i = 0; i < count; ++i) {
        const auto& record = context_.recorders.RecorderList.at(static_cast<std::size_t>(i));
        context_.screen.OfferRecorder(recorder::RecorderItemText(record));
    }
    SelectRemembered();
}

void StartUp::SelectRemembered()
{
    const QString remembered
        = shell::GetSetting(context_.settings, u"Velmora"_s, u"Drive"_s, u"Default"_s, {});
    for (qint16 i = 0; i < context_.screen.RecorderCount(); ++i) {
        if (context_.screen.RecorderName(i) == remembered) {
            context_.screen.SelectRecorder(i);
        }
    }
    if (context_.screen.SelectedRecorder() < 0) {
        context_.screen.SelectRecorder(0);
    }
}

void StartUp::LoadTools()
{
    context_.screen.SetCaption(u"Velmora"_s);
    FirstActivation_ = true;
    ListRecorders();
    SetUpWindow(Tab::Options);
    context_.state.MediaCapacity = shell::kCapacityBeforeAnyChoice;
}

void StartUp::SetUpWindow(Tab tab)
{
    context_.screen.ShowTemporaryDirectory(shell::TempDirSetting(context_.settings));
    context_.navigation.ResetContainer();
    context_.navigation.Setselectedtab(tab);
    context_.screen.CreateIcons();
    context_.screen.SetUpList();
}

bool StartUp::Form_Activate()
{
    if (!std::exchange(FirstActivation_, false) || !NoRecorder_) {
        return true;
    }
    context_.screen.MsgBoxWithAdvice(
        u"Votre système ne semble pas posséder de graveur compatible. "_s,
        style::kExclamation,
        u"Velmora"_s,
        u"Vérifiez que le graveur est branché, et que votre compte fait partie du groupe "
        u"« cdrom ».\n\nSans graveur, tout peut être essayé dans un graveur virtuel : "
        u"« velmora-tray » en fait un."_s);
    return false;
}

} // namespace velmora::wizard
