// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/drives/AllDrives.h"
#include "compilation/NativeSourceFiles.h"
#include "desktop/AccessibleWidgets.h"
#include "desktop/FrenchTexts.h"
#include "desktop/MessageBox.h"
#include "desktop/QtFileChooser.h"
#include "link/TextLink.h"
#include "mastering/DriveMastering.h"
#include "mastering/ImageForecast.h"
#include "records/BurnRecords.h"
#include "runtime/EndSignals.h"
#include "runtime/EventPump.h"
#include "session/Buses.h"
#include "session/DiscUnmounter.h"
#include "session/Notice.h"
#include "session/RunGuard.h"
#include "shell/CommandString.h"
#include "shell/StartWish.h"
#include "store/FileSettingsStore.h"
#include "text/PathText.h"
#include "wizard/FrmMain.h"
#include "wizard/SideThread.h"
#include "wizard/Wizard.h"
#include "writing/LinkedStopCompanion.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>

namespace {

using namespace velmora;
using namespace Qt::StringLiterals;

session::NoticeKind KindOf(wizard::Outcome outcome)
{
    switch (outcome) {
    case wizard::Outcome::Failed:
    case wizard::Outcome::Refused:
        return session::NoticeKind::Failed;
    case wizard::Outcome::Stopped:
        return session::NoticeKind::Stopped;
    default:
        return session::NoticeKind::Done;
    }
}

/// What the desktop does for a run, over its buses.
wizard::RunAttendance DesktopAttendance(const session::Buses& buses)
{
    return {.hold
        = [buses](
              const QString& reason) { return std::make_shared<session::RunGuard>(buses, reason); },
        .tell =
            [buses](const wizard::RunNotice& end) {
                session::ShowNotice(buses.session,
                    {.kind = KindOf(end.outcome), .title = end.title, .text = end.words});
            },
        .call =
            [buses](const QString& title, const QString& text) {
                session::ShowNotice(buses.session,
                    {.kind = session::NoticeKind::Waiting, .title = title, .text = text});
            }};
}

/// The folder that the program lies in.
text::ProgramPath ProgramFolder()
{
    return text::FromQtPath(QCoreApplication::applicationDirPath());
}

constexpr const char* kVersion = "velmora " VELMORA_VERSION "\n";

constexpr const char* kHelp = R"(velmora : grave le contenu d'un dossier sur un disque

Utilisation : velmora [DOSSIER [-n NOM]]
              velmora --burn-iso [IMAGE]
              velmora --erase

Sans dossier, une fenêtre le demande.

  -n NOM              le nom du disque, par défaut celui du dossier
  --burn-iso [IMAGE]  ouvre la fenêtre sur la gravure d'une image ISO
  --erase             ouvre la fenêtre sur l'effacement d'un disque
  -h, --help          affiche cette aide
  --version           affiche la version

Dans un terminal et dans les scripts, velmora-cli fait de même.
)";

constexpr const char* kNoDisplay
    = "Velmora a besoin d'un écran ; sans écran, velmora-cli grave depuis le terminal.\n";

/// The toolkit ends a program that has none with a message of its own.
bool HasDisplay()
{
    return std::ranges::any_of(std::array {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"},
        [](const char* variable) { return !qEnvironmentVariableIsEmpty(variable); });
}

/// @return the exit code if no window should open
std::optional<int> AnswerInTheTerminal(shell::StartKind kind)
{
    if (kind == shell::StartKind::Help || kind == shell::StartKind::Version) {
        std::fputs(kind == shell::StartKind::Help ? kHelp : kVersion, stdout);
        return EXIT_SUCCESS;
    }
    if (!HasDisplay()) {
        std::fputs(kNoDisplay, stderr);
        return EXIT_FAILURE;
    }
    return std::nullopt;
}

void ShowTrouble(const QString& message)
{
    desktop::ShowMessageBox(message, {.icon = desktop::BoxIcon::Exclamation}, u"Velmora"_s);
}

/// Discs are compared if the window says so, and every write is recorded.
mastering::WriteCare CareOf(const wizard::FrmMain& window, const records::BurnRecords& records)
{
    return {.comparesAfterWrite = [&window] { return window.ComparesDiscs(); },
        .keepRecord
        = [&records](const records::BurnRecord& record) { return records.Keep(record); },
        .keepFailure
        = [&records](const records::WriteFailure& failure) { records.KeepFailure(failure); }};
}

/// The window from its opening to its end, over everything that it works with.
int RunWindow(const shell::StartWish& wish, std::span<const char* const> arguments)
{
    runtime::SystemEventPump pump;
    runtime::SystemClock clock(pump);
    const session::Buses buses = session::BusesOfUser();
    session::DiscUnmounter unmounter(buses.system);
    wizard::FrmMain window;
    const records::BurnRecords records(records::BurnRecords::FolderOfUser());
    const auto mastering = mastering::MasteringOf(
        app::AllDrives(pump, clock, unmounter), clock, CareOf(window, records));
    compilation::NativeSourceFiles files;
    desktop::QtFileChooser chooser;
    store::FileSettingsStore settings(store::FileSettingsStore::PathOfUser(), ShowTrouble);
    link::TextLink DDETool;
    writing::LinkedStopCompanion companion(ProgramFolder(), DDETool, pump, clock);
    companion.StandBeside([&window] { return window.frameGeometry(); });
    const mastering::ImageForecast forecast;
    wizard::SideThread sideThread;

    wizard::Wizard wizard(window,
        {.mastering = *mastering,
            .forecast = forecast,
            .clock = clock,
            .pump = pump,
            .files = files,
            .chooser = chooser,
            .settings = settings,
            .companion = companion,
            .sideWork = sideThread,
            .attendance = DesktopAttendance(buses)});
    const bool isLoaded = wish.kind == shell::StartKind::Folder
        ? wizard.Form_Load(shell::ReadArguments(arguments))
        : wizard.LoadTools(wish.image);
    if (!isLoaded) {
        return 0;
    }
    const runtime::EndSignals ends([&wizard] { wizard.End(); });
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    // The arguments are a folder and a disc's name, whatever they look like: not Qt's.
    const std::span<const char* const> arguments(argv + 1, argv + argc);
    const shell::StartWish wish = shell::ReadStartWish(arguments);
    if (const std::optional<int> code = AnswerInTheTerminal(wish.kind)) {
        return *code;
    }
    int qtArgc = 1;
    std::array<char*, 2> qtArgv {*argv, nullptr};
    QApplication application(qtArgc, qtArgv.data());
    QApplication::setDesktopFileName(u"org.velmora.Velmora"_s);
    desktop::UseFrenchTexts(application);
    desktop::ServeScreenReaders();
    return RunWindow(wish, arguments);
}
