// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CapacityAccount.h"
#include "compilation/Compilation.h"
#include "compilation/CompilationList.h"
#include "compilation/ListDrop.h"
#include "compilation/ListEditing.h"
#include "dialogs/CommonDialog.h"
#include "recorder/RecorderState.h"
#include "shell/ProgramState.h"
#include "wizard/rules/DiscOptions.h"
#include "wizard/rules/FormatChoice.h"
#include "wizard/rules/Navigation.h"
#include "wizard/rules/OneTaskAtATime.h"
#include "wizard/rules/RecorderChoice.h"
#include "wizard/rules/StartUp.h"
#include "wizard/screens/BurnOptionsView.h"
#include "wizard/screens/BurnScreenView.h"
#include "wizard/screens/CompilationIcons.h"
#include "wizard/screens/EditingDialogsView.h"
#include "wizard/screens/EraseScreenView.h"
#include "wizard/screens/FormatScreenView.h"
#include "wizard/screens/NavigationView.h"
#include "wizard/screens/StartView.h"
#include "wizard/screens/TemporaryDirectoryBox.h"
#include "writing/ReadingDisplay.h"
#include "writing/RunContext.h"
#include "writing/WriteProgress.h"

#include <QObject>

#include <functional>
#include <memory>

class QAbstractButton;

namespace velmora::wizard {

class FrmMain;

/// What the desktop does for work on a disc. Where it is empty, the work goes on alone.
struct RunAttendance {
    /// Keeps the machine awake as long as what it returns lives.
    std::function<std::shared_ptr<void>()> hold {};
    /// Tells the end to somebody who looks at another program.
    std::function<void(const QString& result)> tell {};
};

/// The world around the window. All of it outlives the wizard.
struct WizardDoors {
    imapi::Mastering& mastering;
    runtime::Clock& clock;
    runtime::EventPump& pump;
    compilation::SourceFiles& files;
    desktop::FileChooser& chooser;
    store::SettingsStore& settings;
    writing::StopCompanion& companion;
    RunAttendance attendance {};
};

/// Puts the rules behind the window: owns what the program knows, and connects every control with
/// the rule of its click.
class Wizard final : public QObject {
public:
    /// @param window  must outlive the wizard
    Wizard(FrmMain& window, const WizardDoors& doors);

    /// The start, before the window is shown. An error of it is reported and ends the program.
    /// @return false when the program is to end at once
    bool Form_Load(const shell::CommandString& command);

    const shell::ProgramState& State() const { return state_; }

private:
    /// A handler of a click.
    using Handler = std::function<void()>;

    void ConnectWindow();
    void ConnectNavigation();
    void ConnectFormats();
    void ConnectList();
    void ConnectConfiguration();
    void ConnectRuns();
    void ConnectSmallWindows();
    void OnClick(QAbstractButton* button, Handler handler);
    /// The same for what takes long: nothing happens while something else does.
    void OnTaskClick(QAbstractButton* button, Handler task);
    /// The same for what works on a disc, attended by the desktop.
    /// @param result  tells how it ended
    void OnRunClick(QAbstractButton* button, Handler run, std::function<QString()> result);
    void RunHandler(const Handler& handler);

    void Form_Activate();
    bool Form_QueryUnload() const;
    void ShowCapacity();
    void SetUpListFile();
    void ShowFrmTemp();
    void EraseDisc();
    QString LastLogLine() const;
    writing::RunContext Context();

    FrmMain& window_;
    WizardDoors doors_;
    shell::ProgramState state_;
    recorder::RecorderState recorders_;
    compilation::CompilationList ListFile_;
    compilation::CapacityAccount capacity_;
    CompilationIcons icons_;
    dialogs::CommonDialog CommonDialog1_;
    TemporaryDirectoryBox RepTempTxt_;
    BurnScreenView burnScreen_;
    BurnOptionsView burnOptions_;
    EraseScreenView eraseScreen_;
    FormatScreenView formatScreen_;
    NavigationView navigationView_;
    StartView startView_;
    compilation::Compilation compilation_;
    EditingDialogsView editingDialogs_;
    compilation::ListEditing listEditing_;
    compilation::ListDrop listDrop_;
    Navigation navigation_;
    FormatChoice formatChoice_;
    DiscOptions discOptions_;
    RecorderChoice recorderChoice_;
    StartUp startUp_;
    writing::ReadingDisplay reading_;
    writing::WriteProgress progress_;
    imapi::DiscFormat2EraseRef DataEraser_;
    OneTaskAtATime tasks_;
};

} // namespace velmora::wizard
