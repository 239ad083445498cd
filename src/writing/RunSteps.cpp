// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/RunSteps.h"

#include "drive/DiscKinds.h"
#include "drive/SectorSize.h"
#include "runtime/TextRules.h"
#include "writing/ChangedSources.h"
#include "writing/ComparisonWords.h"

#include <QScopeGuard>

#include <algorithm>

namespace velmora::writing {

using namespace Qt::StringLiterals;
using Action = imapi::IMAPI_FORMAT2_DATA_WRITE_ACTION;

namespace {

RunPhase PhaseOf(Action action)
{
    switch (action) {
    case Action::FormattingMedia:
        return RunPhase::Formatting;
    case Action::CalibratingPower:
        return RunPhase::Calibrating;
    case Action::WritingData:
        return RunPhase::Writing;
    case Action::Finalization:
        return RunPhase::Finalizing;
    case Action::Verifying:
        return RunPhase::Comparing;
    case Action::Completed:
        return RunPhase::Working;
    default:
        return RunPhase::Preparing;
    }
}

} // namespace

RunSteps::RunSteps(const RunContext& context, RunReport& report)
    : context_(context)
    , screen_(context.screen)
    , state_(context.state)
    , report_(report)
    , estimate_([&clock = context.clock] { return clock.Timer(); })
{
}

void RunSteps::ShowLog(const QString& line) { screen_.AddLogLine(line); }

void RunSteps::StartLog(const QString& firstLine) { screen_.StartLog(firstLine); }

void RunSteps::Begin()
{
    figures_ = {};
    EnterPhase(RunPhase::Working);
    screen_.ShowFigures(figures_);
    screen_.ShowBurnButton(BurnButton::BurnDisc, false);
    screen_.ShowBurnButton(BurnButton::MakeIsoFile, false);
    screen_.ShowBurnButton(BurnButton::Stop, true);
}

void RunSteps::End()
{
    EnterPhase(RunPhase::Idle);
    screen_.ShowFigures(figures_);
}

void RunSteps::EnterPhase(RunPhase phase)
{
    if (phase != figures_.phase) {
        figures_.phase = phase;
        estimate_.Begin();
        Measure(0);
    }
}

void RunSteps::FindRecorder(qint16 listIndex)
{
    context_.recorders.DiscMaster = context_.mastering.CreateDiscMaster();
    recorder_ = context_.mastering.CreateDiscRecorder();
    report_.recorderId = context_.recorders.DiscMaster->Item(listIndex);
}

void RunSteps::OpenWriter()
{
    recorder_->InitializeDiscRecorder(report_.recorderId);
    dataWriter1_ = context_.mastering.CreateDiscFormat2Data();
    dataWriter1_->OnUpdate([this](const imapi::IDiscFormat2DataEventArgs& progress) {
        Count(progress);
        context_.progress.dataWriter1_Update(*dataWriter1_, progress);
    });
    dataWriter1_->OnWait([this] { context_.progress.HearStop(*dataWriter1_); });
    dataWriter1_->SetRecorder(recorder_);
    dataWriter1_->SetClientName(u"Tamsel"_s);
}

recorder::DetectedMedia RunSteps::DetectMedia(bool PromptForMedia)
{
    const auto& RecorderList = context_.recorders.RecorderList;
    const auto index = static_cast<std::size_t>(state_.SelectedRecorder);
    if (index >= RecorderList.size()) {
        throw runtime::RuntimeError(runtime::error::kSubscriptOutOfRange);
    }
    const recorder::DetectionContext context {
        context_.recorders, context_.mastering, context_.clock, screen_, screen_, screen_};
    const recorder::DetectionRequest request {
        .UniqueId = RecorderList[index].RecorderId, .PromptForMedia = PromptForMedia};
    recorder::DetectedMedia media = recorder::DetectMedia(context, request);
    Take(media);
    return media;
}

void RunSteps::Take(const recorder::DetectedMedia& media)
{
    detectionFailure_ = media.failure;
    findings_.SpeedList = media.SpeedList.value_or(findings_.SpeedList);
    const bool isNamed = media.end == recorder::DetectionEnd::Named;
    findings_.IsErasable = isNamed && drive::IsErasable(media.type);
    findings_.FileSystemImported = media.FileSystemImported.value_or(findings_.FileSystemImported);
    findings_.MediaBlank = media.MediaBlank.value_or(findings_.MediaBlank);
    state_.MediaFreeBytes = media.FreeBytes.value_or(state_.MediaFreeBytes);
    if (isNamed) {
        const drive::DiscKind* kind = drive::FindDiscKind(media.type);
        figures_.family = kind != nullptr ? kind->family : drive::DiscFamily::None;
        figures_.disc = runtime::Trim(media.text);
        figures_.freeSectors = static_cast<qint64>(state_.MediaFreeBytes) / drive::kSectorBytes;
        screen_.ShowFigures(figures_);
    }
}

void RunSteps::ShowWait()
{
    screen_.SetWaitBar(WaitBar::Running);
    screen_.ShowDriveWait(true);
    screen_.Pump();
    screen_.SetMousePointer(shell::MousePointer::Hourglass);
}

void RunSteps::HideWait()
{
    screen_.SetMousePointer(shell::MousePointer::Arrow);
    screen_.ShowDriveWait(false);
    screen_.SetWaitBar(WaitBar::Hidden);
}

void RunSteps::Count(const imapi::IDiscFormat2DataEventArgs& progress)
{
    if (progress.SectorCount > 0) {
        figures_.firstSector = progress.StartLba;
        figures_.sectors = progress.SectorCount;
        figures_.writtenSectors
            = std::max<qint64>(0, qint64 {progress.LastWrittenLba} - progress.StartLba);
        report_.writtenBytes = static_cast<quint64>(figures_.writtenSectors * drive::kSectorBytes);
        report_.tookAllSectors = figures_.writtenSectors >= figures_.sectors;
    }
    EnterPhase(PhaseOf(progress.CurrentAction));
    if (progress.CurrentAction == Action::WritingData) {
        Measure(figures_.writtenSectors);
    } else if (progress.CurrentAction == Action::Verifying) {
        figures_.comparedSectors = qint64 {progress.LastReadLba} - progress.StartLba;
        Measure(figures_.comparedSectors);
    }
    screen_.ShowFigures(figures_);
    context_.companion.ShowProgress(figures_);
}

void RunSteps::Measure(qint64 done)
{
    estimate_.Reach(done, figures_.sectors);
    figures_.phaseSeconds = estimate_.Elapsed();
    figures_.sectorsPerSecond = estimate_.PerSecond();
    figures_.secondsLeft = estimate_.SecondsLeft();
}

void RunSteps::Write(const imapi::StreamRef& stream)
{
    screen_.CaptureMouse();
    screen_.Pump();
    context_.companion.Start();
    bool hasReturned = false;
    const auto told = qScopeGuard([&] { TellWrite(stream, hasReturned); });
    dataWriter1_->Write(stream);
    hasReturned = true;
    report_.isWritten = true;
    screen_.ReleaseMouse();
}

void RunSteps::Eject()
{
    const auto told = qScopeGuard([this] { TellChangedSources(report_, screen_); });
    dataWriter1_->Recorder()->EjectMedia();
    report_.isEjected = true;
}

void RunSteps::TellWrite(const imapi::StreamRef& stream, bool hasReturned)
{
    TellComparison();
    if (report_.isWritten) {
        report_.changedSources = stream->ChangedSources();
    }
    if (!hasReturned) { // the disc won't be ejected
        TellChangedSources(report_, screen_);
    }
}

void RunSteps::TellComparison()
{
    report_.comparison = dataWriter1_->Comparison();
    if (report_.comparison.end != imapi::ComparisonEnd::NotBegun) {
        report_.isWritten = true;
    }
    for (const QString& line : WordsOf(report_.comparison)) {
        ShowLog(line);
    }
    report_.remarks = dataWriter1_->Remarks();
    for (const QString& remark : report_.remarks) {
        ShowLog(u"Attention : "_s + remark);
    }
}

bool RunSteps::IsStopped() const { return state_.StopFlag || context_.companion.IsStopAsked(); }

void RunSteps::PutBack()
{
    context_.companion.Finish();
    screen_.SetProgress(ProgressOf::Run, 0);
    screen_.SetProgress(ProgressOf::File, 0);
    screen_.ShowProgress(ProgressOf::File, false);
}

} // namespace velmora::writing
