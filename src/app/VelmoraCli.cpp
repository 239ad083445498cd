// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandLine.h"
#include "ConsoleScreen.h"
#include "DriveJob.h"
#include "DriveMastering.h"
#include "EventPump.h"
#include "ImageJob.h"
#include "StopSignal.h"
#include "SystemDrives.h"
#include "VirtualDriveSource.h"

#include <QCoreApplication>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace {

using namespace velmora::terminal;

velmora::image::TimeStamp Now()
{
    using namespace std::chrono;
    const auto now = duration_cast<microseconds>(system_clock::now().time_since_epoch());
    const auto seconds = floor<std::chrono::seconds>(now);
    return {.seconds = seconds.count(),
        .microseconds = static_cast<std::uint32_t>((now - seconds).count())};
}

ExitCode Show(const Answer& answer, TerminalScreen& screen)
{
    if (answer.code == ExitCode::Done) {
        screen.Result(answer.text);
    } else {
        screen.Notice(answer.text);
    }
    return answer.code;
}

ExitCode MakeImage(const ImageRequest& request, TerminalScreen& screen)
{
    StopSignal stop;
    ImageJob job(request,
        {.screen = screen,
            .stopRequested = [&] { return stop.Requested(); },
            .partialFile = [&](const std::string& path) { stop.SetPartialFile(path); }});
    return job.Run();
}

/// Only a question about the drives needs the event loop.
ExitCode AskDrives(const DriveRequest& request, TerminalScreen& screen, char* programName)
{
    int argc = 1;
    std::array<char*, 2> argv {programName, nullptr};
    const QCoreApplication application(argc, argv.data());
    velmora::runtime::SystemEventPump pump;
    velmora::runtime::SystemClock clock(pump);
    using velmora::drives::Surroundings;
    using velmora::drives::SystemDrives;
    using velmora::virtualdrive::Recorders;
    using velmora::virtualdrive::VirtualDriveSource;
    const auto mastering = velmora::imapi::MasteringOf(
        {std::make_shared<SystemDrives>(Surroundings {.pump = pump, .clock = clock}),
            std::make_shared<VirtualDriveSource>(Recorders::OfUser(), clock, pump)},
        clock);
    return RunDriveRequest(request, *mastering, clock, screen);
}

} // namespace

int main(int argc, char** argv)
{
    // A reader that goes away or a file size limit must reach the job as a failed write, so that it
    // takes its partial file away.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    ConsoleScreen screen;
    const auto command
        = ParseCommandLine({argv + 1, argv + argc}, std::getenv("SOURCE_DATE_EPOCH"), Now());
    if (const auto* answer = std::get_if<Answer>(&command)) {
        return static_cast<int>(Show(*answer, screen));
    }
    if (const auto* request = std::get_if<DriveRequest>(&command)) {
        return static_cast<int>(AskDrives(*request, screen, *argv));
    }
    return static_cast<int>(MakeImage(std::get<ImageRequest>(command), screen));
}
