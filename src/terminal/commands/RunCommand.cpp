// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/commands/RunCommand.h"

#include "mastering/DriveMastering.h"
#include "terminal/check/BurnsJob.h"
#include "terminal/check/CheckJob.h"
#include "terminal/console/JsonScreen.h"
#include "terminal/console/LineSource.h"
#include "terminal/console/QuietScreen.h"
#include "terminal/console/StopSignal.h"
#include "terminal/disc/BurnJob.h"
#include "terminal/disc/EraseJob.h"
#include "terminal/disc/IsoBurnJob.h"
#include "terminal/disc/WriteWitness.h"
#include "terminal/drives/DriveJob.h"
#include "terminal/image/ImageJob.h"

#include <chrono>
#include <new>
#include <optional>
#include <string>
#include <variant>

namespace velmora::terminal {

namespace {

ExitCode Show(const Reply& reply, TerminalScreen& screen)
{
    if (reply.code == ExitCode::Done) {
        screen.Result(reply.text);
    } else {
        screen.Notice(reply.text);
        screen.Tell(Failure {.text = reply.mistake});
    }
    return reply.code;
}

/// A screen that leaves standard output to the image.
class ReportsAside final : public TerminalScreen {
public:
    explicit ReportsAside(TerminalScreen& screen)
        : screen_(screen)
    {
    }

    ProgressStyle Style() const override { return screen_.Style(); }
    void Result(const std::string& line) override { screen_.Notice(line); }
    void Notice(const std::string& line) override { screen_.Notice(line); }
    void Progress(const std::string& line) override { screen_.Progress(line); }
    void Question(const std::string& line) override { screen_.Question(line); }
    void Tell(const JobEvent& event) override { screen_.Tell(event); }

private:
    TerminalScreen& screen_;
};

ExitCode MakeImage(const ImageRequest& request, TerminalScreen& screen)
{
    StopSignal stop;
    ReportsAside aside(screen);
    ImageJob job(request,
        {.screen = request.IsForStandardOutput() ? aside : screen,
            .stopRequested = [&] { return stop.Requested(); },
            .partialFile = [&](const std::string& path) { stop.SetPartialFile(path); }});
    return job.Run();
}

ExitCode Change(const BurnRequest& request, const DiscContext& context)
{
    return BurnJob(request, context).Run();
}
ExitCode Change(const IsoBurnRequest& request, const DiscContext& context)
{
    return BurnIsoFile(request, context);
}
ExitCode Change(const EraseRequest& request, const DiscContext& context)
{
    return RunErase(request, context);
}

/// The image times for a command that makes no image.
template <class Request>
mastering::ImageTimes TimesOf(const Request& /*request*/, const runtime::Clock& /*clock*/)
{
    return {};
}

/// Copies are identical to the byte, so they share one time.
mastering::ImageTimes TimesOf(const BurnRequest& request, const runtime::Clock& clock)
{
    if (request.content.time) {
        return {.made = request.content.time, .latest = request.content.time};
    }
    const bool isSeries = request.terms.copies > 1;
    return {.made = isSeries ? std::optional(mastering::StampOf(clock.Now())) : std::nullopt};
}

/// Changes a disc, with the machine kept awake; Ctrl-C stops it in an orderly way.
template <class Request>
ExitCode ChangeDisc(const Request& request,
    const DriveTaskContext& context,
    const records::BurnRecords& records,
    TerminalScreen& screen)
{
    WriteWitness witness;
    const auto mastering = mastering::MasteringOf(Witnessed(context.sources, witness),
        context.clock,
        {.comparesAfterWrite = [&request] { return request.terms.comparesAfterwards; },
            .keepRecord =
                [&](const records::BurnRecord& record) {
                    witness.HearDigest(record.sha256);
                    return records.Keep(record);
                },
            .keepFailure
            = [&records](const records::WriteFailure& failure) { records.KeepFailure(failure); },
            .imageTimes = TimesOf(request, context.clock)});
    const std::shared_ptr<void> awake = context.hold();
    StopSignal stop;
    const auto isRequested = [&stop] { return stop.Requested(); };
    StandardInput input(isRequested);
    return Change(request,
        DiscContext {.screen = screen,
            .input = input,
            .mastering = *mastering,
            .witness = witness,
            .pump = context.pump,
            .clock = context.clock,
            .stopRequested = isRequested,
            .insistOnOrderlyEnd = [&stop](bool insists) { stop.SetPatient(insists); }});
}

ExitCode CheckImage(
    const CheckRequest& request, const records::BurnRecords& records, TerminalScreen& screen)
{
    const StopSignal stop;
    return CheckJob(request, {screen, records, [&stop] { return stop.Requested(); }}).RunOnImage();
}

ExitCode CheckDisc(const CheckRequest& request,
    const DriveTaskContext& context,
    const records::BurnRecords& records,
    TerminalScreen& screen)
{
    const auto mastering = mastering::MasteringOf(context.sources, context.clock);
    const std::shared_ptr<void> awake = context.hold();
    const StopSignal stop;
    return CheckJob(request, {screen, records, [&stop] { return stop.Requested(); }})
        .RunOnDisc(*mastering, context.clock);
}

/// Carries out the request, with no more than it needs.
struct Dispatcher {
    TerminalScreen& screen;
    const records::BurnRecords& records;
    const std::function<ExitCode(const DriveTask&)>& withDrives;

    ExitCode operator()(const Reply& reply) const { return Show(reply, screen); }
    ExitCode operator()(const ImageRequest& request) const { return MakeImage(request, screen); }
    ExitCode operator()(const BurnsRequest& request) const
    {
        return RunBurnsRequest(request, records, screen);
    }
    ExitCode operator()(const CheckRequest& request) const
    {
        if (!request.image.IsEmpty()) {
            return CheckImage(request, records, screen);
        }
        return withDrives([&](const DriveTaskContext& context) {
            return CheckDisc(request, context, records, screen);
        });
    }
    ExitCode operator()(const DriveRequest& request) const
    {
        return withDrives([&](const DriveTaskContext& context) {
            const auto mastering = mastering::MasteringOf(context.sources, context.clock);
            return RunDriveRequest(request, *mastering, records, context.clock, screen);
        });
    }
    template <class Request> ExitCode operator()(const Request& request) const
    {
        return withDrives([&](const DriveTaskContext& context) {
            return ChangeDisc(request, context, records, screen);
        });
    }
};

ExitCode Do(const Command& command, const Dispatcher& dispatcher)
{
    try {
        return std::visit(dispatcher, command);
    } catch (const std::bad_alloc&) {
        return Fail(dispatcher.screen,
            "la mémoire de la machine ne suffit pas. Fermez d'autres programmes, ou partagez le "
            "dossier en plusieurs disques, puis recommencez.");
    }
}

} // namespace

ExitCode RunCommand(const Command& command,
    const OutputChoice& output,
    TerminalScreen& screen,
    const records::BurnRecords& records,
    const std::function<ExitCode(const DriveTask&)>& withDrives)
{
    if (output.form == OutputForm::Json) {
        JsonScreen json(screen, output.command, std::chrono::steady_clock::now);
        const ExitCode code = Do(command, {json, records, withDrives});
        json.End(code);
        return code;
    }
    if (output.form == OutputForm::Quiet) {
        QuietScreen quiet(screen);
        return Do(command, {quiet, records, withDrives});
    }
    return Do(command, {screen, records, withDrives});
}

} // namespace velmora::terminal
