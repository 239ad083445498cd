// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/SystemDrives.h"
#include "mastering/DriveMastering.h"
#include "runtime/EventPump.h"
#include "session/DiscUnmounter.h"
#include "session/RunGuard.h"
#include "terminal/arguments/CommandLine.h"
#include "terminal/console/ConsoleScreen.h"
#include "terminal/console/StopSignal.h"
#include "terminal/disc/BurnJob.h"
#include "terminal/disc/EraseJob.h"
#include "terminal/disc/IsoBurnJob.h"
#include "terminal/drives/DriveJob.h"
#include "terminal/image/ImageJob.h"
#include "virtual/VirtualDriveSource.h"

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

ExitCode Show(const Reply& reply, TerminalScreen& screen)
{
    if (reply.code == ExitCode::Done) {
        screen.Result(reply.text);
    } else {
        screen.Notice(reply.text);
    }
    return reply.code;
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

/// What the commands about drives work with; only they need the event loop.
class DriveDesk {
public:
    DriveDesk(TerminalScreen& screen, int& argc, char** argv)
        : application_(argc, argv)
        , screen_(screen)
    {
    }

    ExitCode Do(const DriveRequest& request)
    {
        return RunDriveRequest(request, *mastering_, clock_, screen_);
    }
    ExitCode Do(const BurnRequest& request)
    {
        return WhileStoppable(
            [&](const DiscContext& context) { return BurnJob(request, context).Run(); });
    }
    ExitCode Do(const IsoBurnRequest& request)
    {
        return WhileStoppable(
            [&](const DiscContext& context) { return BurnIsoFile(request, context); });
    }
    ExitCode Do(const EraseRequest& request)
    {
        return WhileStoppable(
            [&](const DiscContext& context) { return EraseDisc(request, context); });
    }

private:
    template <class Job> ExitCode WhileStoppable(Job&& job)
    {
        using namespace Qt::StringLiterals;
        const velmora::session::RunGuard awake(buses_, u"Velmora grave ou efface un disque"_s);
        StopSignal stop;
        const auto isRequested = [&stop] { return stop.Requested(); };
        StandardInput input(isRequested);
        return job(DiscContext {.screen = screen_,
            .input = input,
            .mastering = *mastering_,
            .witness = witness_,
            .pump = pump_,
            .clock = clock_,
            .stopRequested = isRequested,
            .insistOnOrderlyEnd = [&stop](bool insists) { stop.SetPatient(insists); }});
    }

    velmora::mastering::DriveSources Sources()
    {
        using velmora::drives::BurnDriveContext;
        using velmora::drives::SystemDrives;
        using velmora::virtualdrive::Recorders;
        using velmora::virtualdrive::VirtualDriveSource;
        return {std::make_shared<SystemDrives>(
                    BurnDriveContext {.pump = pump_, .clock = clock_, .unmounter = &unmounter_}),
            std::make_shared<VirtualDriveSource>(Recorders::OfUser(), clock_, pump_)};
    }

    QCoreApplication application_;
    TerminalScreen& screen_;
    velmora::runtime::SystemEventPump pump_;
    velmora::runtime::SystemClock clock_ {pump_};
    velmora::session::Buses buses_ = velmora::session::BusesOfUser();
    velmora::session::DiscUnmounter unmounter_ {buses_.system};
    WriteWitness witness_;
    std::unique_ptr<velmora::imapi::Mastering> mastering_
        = velmora::mastering::MasteringOf(Witnessed(Sources(), witness_), clock_);
};

/// Does what was asked for, with no more than it needs.
class Dispatcher {
public:
    Dispatcher(TerminalScreen& screen, char* programName)
        : screen_(screen)
        , argv_ {programName, nullptr}
    {
    }

    ExitCode operator()(const Reply& reply) { return Show(reply, screen_); }
    ExitCode operator()(const ImageRequest& request) { return MakeImage(request, screen_); }
    template <class Request> ExitCode operator()(const Request& request)
    {
        return DriveDesk(screen_, argc_, argv_.data()).Do(request);
    }

private:
    TerminalScreen& screen_;
    int argc_ = 1;
    std::array<char*, 2> argv_;
};

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
    return static_cast<int>(std::visit(Dispatcher(screen, *argv), command));
}
