// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/drives/AllDrives.h"
#include "records/BurnRecords.h"
#include "runtime/EventPump.h"
#include "session/Buses.h"
#include "session/DiscUnmounter.h"
#include "session/RunGuard.h"
#include "terminal/arguments/CommandLine.h"
#include "terminal/commands/RunCommand.h"
#include "terminal/console/ConsoleScreen.h"

#include <QCoreApplication>

#include <array>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace velmora;
using namespace Qt::StringLiterals;

terminal::ExitCode WithDrives(const char* programName, const terminal::DriveTask& task)
{
    int argc = 1;
    std::string name = programName; // Qt may write to it
    std::array<char*, 2> argv {name.data(), nullptr};
    const QCoreApplication application(argc, argv.data());
    runtime::SystemEventPump pump;
    runtime::SystemClock clock(pump);
    const session::Buses buses = session::BusesOfUser();
    session::DiscUnmounter unmounter(buses.system);
    return task({.pump = pump,
        .clock = clock,
        .sources = app::AllDrives(pump, clock, unmounter),
        .hold = [&buses] {
            return std::make_shared<session::RunGuard>(
                buses, u"Velmora grave ou efface un disque"_s);
        }});
}

} // namespace

int main(int argc, char** argv)
{
    // A reader that goes away or a file size limit must reach the job as a failed write, so that it
    // removes its partial file.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    terminal::ConsoleScreen screen;
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto command = terminal::ParseCommandLine(
        arguments, std::getenv("SOURCE_DATE_EPOCH"), terminal::PresentTime());
    const records::BurnRecords records(records::BurnRecords::FolderOfUser());
    const auto withDrives
        = [argv](const terminal::DriveTask& task) { return WithDrives(*argv, task); };
    return static_cast<int>(terminal::RunCommand(
        command, terminal::ChooseOutput(arguments), screen, records, withDrives));
}
