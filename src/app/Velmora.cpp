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
#include "records/BurnRecords.h"
#include "runtime/EndSignals.h"
#include "runtime/EventPump.h"
#include "session/Buses.h"
#include "session/DiscUnmounter.h"
#include "session/Notice.h"
#include "session/RunGuard.h"
#include "shell/CommandString.h"
#include "store/FileSettingsStore.h"
#include "text/PathText.h"
#include "wizard/FrmMain.h"
#include "wizard/Wizard.h"
#include "writing/LinkedStopCompanion.h"

#include <QApplication>
#include <QFile>

#include <array>
#include <memory>
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

/// Program path of the folder that the program lies in.
QString ProgramFolder()
{
    return text::ToProgramPath(
        QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString());
}

void ShowTrouble(const QString& message)
{
    desktop::ShowMessageBox(message, {.icon = desktop::BoxIcon::Exclamation}, u"Velmora"_s);
}

} // namespace

int main(int argc, char** argv)
{
    // The arguments are a folder and a disc's name, whatever they look like: not Qt's.
    const shell::CommandString command
        = shell::ReadArguments(std::span<const char* const>(argv + 1, argv + argc));
    int qtArgc = 1;
    std::array<char*, 2> qtArgv {*argv, nullptr};
    QApplication application(qtArgc, qtArgv.data());
    QApplication::setDesktopFileName(u"org.velmora.Velmora"_s);
    desktop::UseFrenchTexts(application);
    desktop::ServeScreenReaders();

    runtime::SystemEventPump pump;
    runtime::SystemClock clock(pump);
    const session::Buses buses = session::BusesOfUser();
    session::DiscUnmounter unmounter(buses.system);
    wizard::FrmMain window;
    const records::BurnRecords records(records::BurnRecords::FolderOfUser());
    const auto mastering = mastering::MasteringOf(app::AllDrives(pump, clock, unmounter),
        clock,
        {.comparesAfterWrite = [&window] { return window.ComparesDiscs(); },
            .keepRecord
            = [&records](const records::BurnRecord& record) { return records.Keep(record); }});
    compilation::NativeSourceFiles files;
    desktop::QtFileChooser chooser;
    store::FileSettingsStore settings(store::FileSettingsStore::PathOfUser(), ShowTrouble);
    link::TextLink DDETool;
    writing::LinkedStopCompanion companion(ProgramFolder(), DDETool, pump, clock);

    wizard::Wizard wizard(window,
        {.mastering = *mastering,
            .clock = clock,
            .pump = pump,
            .files = files,
            .chooser = chooser,
            .settings = settings,
            .companion = companion,
            .attendance = DesktopAttendance(buses)});
    if (!wizard.Form_Load(command)) {
        return 0;
    }
    const runtime::EndSignals ends([&wizard] { wizard.End(); });
    window.show();
    return QApplication::exec();
}
