// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandLine.h"
#include "ConsoleScreen.h"
#include "ImageJob.h"
#include "StopSignal.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
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

    StopSignal stop;
    ImageJob job(std::get<ImageRequest>(command),
        {.screen = screen,
            .stopRequested = [&] { return stop.Requested(); },
            .partialFile = [&](const std::string& path) { stop.SetPartialFile(path); }});
    return static_cast<int>(job.Run());
}
