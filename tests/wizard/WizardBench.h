// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/NativeSourceFiles.h"
#include "desktop/FileChooser.h"
#include "mastering/DriveMastering.h"
#include "mastering/ImageForecast.h"
#include "runtime/EventPump.h"
#include "shell/CommandString.h"
#include "store/FileSettingsStore.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FindChild.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/SampleSectors.h"
#include "tests/wizard/Boxes.h"
#include "text/PathText.h"
#include "virtual/Recorders.h"
#include "virtual/VirtualDriveSource.h"
#include "wizard/FrmMain.h"
#include "wizard/SideWork.h"
#include "wizard/Wizard.h"
#include "writing/StopCompanion.h"

#include <QAbstractButton>
#include <QTest>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// The event loop, and what the user does while it is pumped.
class WatchedPump final : public runtime::EventPump {
public:
    void Pump() override
    {
        pump_.Pump();
        if (onPump) onPump();
    }

    std::function<void()> onPump;

private:
    runtime::SystemEventPump pump_;
};

/// File dialogs that answer as the test has planned, and cancel when nothing is left.
class ScriptedChooser final : public desktop::FileChooser {
public:
    QList<text::ProgramPath> AskFiles(const desktop::FileQuestion& question) override
    {
        questions += question.title;
        return test::ProgramPaths(std::exchange(files, {}));
    }
    text::ProgramPath AskFolder(const desktop::FolderQuestion& question) override
    {
        questions += question.title;
        folders += question.folder.Text();
        return text::ProgramPath(std::exchange(folder, {}));
    }

    QStringList files;
    QString folder;
    QStringList questions;
    QStringList folders; ///< where each folder dialog began
};

/// A companion that is started and told to quit, and whose button the test presses.
class ScriptedCompanion final : public writing::StopCompanion {
public:
    void Start() override
    {
        ++starts;
        isStopAsked = isFinished = false;
    }
    void Finish() override
    {
        isStopAsked = false;
        isFinished = true;
    }
    bool IsStopAsked() const override { return isStopAsked; }

    int starts = 0;
    bool isStopAsked = false;
    bool isFinished = false;
};

/// Side work that is done as soon as it is begun or, if held, when the test says so.
class ScriptedSideWork final : public wizard::SideWork {
public:
    void Begin(Work work) override
    {
        Drop();
        begun_ = std::move(work);
        stop_ = std::stop_source();
        if (!isHeld) Finish();
    }
    void Drop() override
    {
        stop_.request_stop();
        begun_ = {};
    }

    bool IsBegun() const { return static_cast<bool>(begun_); }
    void Finish()
    {
        if (const Work work = std::exchange(begun_, {})) work(stop_.get_token())();
    }

    bool isHeld = false;

private:
    Work begun_;
    std::stop_source stop_;
};

/// The folder that a bench keeps everything in.
class BenchFolder {
public:
    explicit BenchFolder(std::filesystem::path path)
        : path_(std::move(path))
    {
    }

    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
    void MakeFolder(const std::string& name) const
    {
        std::filesystem::create_directories(path_ / name);
    }
    /// A sparse file: a large one takes no room.
    void MakeFile(const std::string& name, std::uintmax_t bytes) const
    {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary).close();
        std::filesystem::resize_file(path_ / name, bytes);
    }

private:
    std::filesystem::path path_;
};

/// The real window with its rules, over virtual recorders in a folder of their own.
class WizardBench {
public:
    explicit WizardBench(std::filesystem::path path)
        : folder(std::move(path))
    {
        folder.MakeFile("Photos/plage.jpg", 300'000);
        folder.MakeFile("Photos/2024/montagne.jpg", 200'000);
        folder.MakeFile("Photos/lisez-moi.txt", 1'000);
    }

    /// Makes a recorder, with a blank disc in it when its key is given.
    void MakeRecorder(const QString& name, const QString& medium = {}) const
    {
        recorders.Create(name);
        if (!medium.isEmpty()) {
            Insert(name, medium);
        }
    }
    void Insert(const QString& name, const QString& medium) const
    {
        recorders.Insert(name, {.medium = virtualdrive::FindMedium(medium)}, *clock);
    }

    QString FolderPath(const std::string& name = "Photos") const
    {
        return text::ToProgramPath((folder / name).string());
    }

    /// Makes the window and runs its start.
    /// @return whether to show it
    bool Load(const QString& command)
    {
        MakeWindow();
        return wizard->Form_Load(shell::ParseCommandString(command));
    }
    /// The same for a start without a folder, with an image to burn or none.
    bool LoadTools(const text::ProgramPath& image = text::ProgramPath())
    {
        MakeWindow();
        return wizard->LoadTools(image);
    }
    void MakeWindow()
    {
        mastering = mastering::MasteringOf(
            {std::make_shared<virtualdrive::VirtualDriveSource>(recorders, *clock, pump)},
            *clock,
            {.comparesAfterWrite = [this] { return window->ComparesDiscs(); }});
        wizard.reset();
        window = std::make_unique<wizard::FrmMain>();
        wizard = std::make_unique<wizard::Wizard>(*window,
            wizard::WizardContext {.mastering = *mastering,
                .forecast = forecast,
                .clock = *clock,
                .pump = pump,
                .files = files,
                .chooser = chooser,
                .settings = settings,
                .companion = companion,
                .sideWork = sideWork,
                .attendance = attendance});
    }
    /// The window as it is after a start on the sample folder.
    void Open()
    {
        if (!Load(FolderPath())) {
            throw std::runtime_error("the start failed");
        }
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get())) {
            throw std::runtime_error("no window came");
        }
        QCoreApplication::processEvents();
    }

    template <class Child> Child& Find(const char* name) const
    {
        return test::FindChild<Child>(*window, name);
    }
    /// Clicks with the mouse on a visible button, where its caption begins, after the time that a
    /// user needs to look at the page.
    void Click(const char* name) const
    {
        constexpr double kLook = 0.5; // seconds; longer than a double click takes
        clock->Pause(kLook);
        ClickAtOnce(name);
    }
    void ClickAtOnce(const char* name) const
    {
        auto& button = Find<QAbstractButton>(name);
        if (!button.isVisible()) {
            throw std::runtime_error(std::string("not on screen: ") + name);
        }
        QTest::mouseClick(&button, Qt::LeftButton, {}, {button.height() / 2, button.height() / 2});
    }
    bool IsOnScreen(const char* name) const { return Find<QWidget>(name).isVisible(); }

    BenchFolder folder;
    WatchedPump pump;
    std::unique_ptr<runtime::Clock> clock
        = std::make_unique<FakeClock>(pump, QDateTime(QDate(2026, 11, 21), QTime(9, 30)));
    virtualdrive::Recorders recorders {(folder / "recorders").string(), SampleSectors};
    store::FileSettingsStore settings {QString::fromStdString((folder / "settings.json").string())};
    compilation::NativeSourceFiles files;
    ScriptedChooser chooser;
    ScriptedCompanion companion;
    const mastering::ImageForecast forecast;
    ScriptedSideWork sideWork;
    wizard::RunAttendance attendance;
    std::unique_ptr<imapi::Mastering> mastering;
    std::unique_ptr<wizard::FrmMain> window;
    std::unique_ptr<wizard::Wizard> wizard;
    Boxes boxes;
};

} // namespace velmora::test
