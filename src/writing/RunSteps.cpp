// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/RunSteps.h"

#include "companion/protocol/StopWords.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

RunSteps::RunSteps(const RunContext& context)
    : context_(context)
    , screen_(context.screen)
    , state_(context.state)
{
}

void RunSteps::ShowLog(const QString& line, bool LogClear) { screen_.ShowLog(line, LogClear); }

void RunSteps::ShowStopButton()
{
    screen_.ShowBurnButton(BurnButton::BurnDisc, false);
    screen_.ShowBurnButton(BurnButton::MakeIsoFile, false);
    screen_.ShowBurnButton(BurnButton::Stop, true);
}

void RunSteps::FindRecorder(qint16 listIndex)
{
    context_.recorders.DiscMaster = context_.mastering.CreateDiscMaster();
    recorder_ = context_.mastering.CreateDiscRecorder();
    uniqueId_ = context_.recorders.DiscMaster->Item(listIndex);
}

void RunSteps::OpenWriter()
{
    recorder_->InitializeDiscRecorder(uniqueId_);
    dataWriter1_ = context_.mastering.CreateDiscFormat2Data();
    dataWriter1_->OnUpdate([this](const imapi::IDiscFormat2DataEventArgs& progress) {
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
    findings_.SpeedList = media.SpeedList.value_or(findings_.SpeedList);
    findings_.FileSystemImported = media.FileSystemImported.value_or(findings_.FileSystemImported);
    findings_.MediaBlank = media.MediaBlank.value_or(findings_.MediaBlank);
    state_.MediaFreeBytes = media.FreeBytes.value_or(state_.MediaFreeBytes);
}

void RunSteps::ShowWait()
{
    screen_.RunCorvane7BarWait1(true);
    screen_.ShowCorvane7BarWait1(true);
    screen_.ShowFrame3DWait(true);
    screen_.Pump();
    screen_.SetMousePointer(shell::MousePointer::Hourglass);
}

void RunSteps::HideWait()
{
    screen_.SetMousePointer(shell::MousePointer::Arrow);
    screen_.ShowFrame3DWait(false);
    screen_.ShowCorvane7BarWait1(false);
}

MediumVerdict RunSteps::Refuse(const QString& caption, const QString& question)
{
    using namespace shell::message_style;
    screen_.SetLabel14(caption);
    ShowLog(screen_.Label14());
    ShowLog(u"Abandon !"_s);
    const shell::MessageAnswer answer = screen_.MsgBox(screen_.Label14() + u"\r\n\r\n"_s + question,
        kYesNo + kQuestion,
        u"Média non compatible ou invalide"_s);
    return answer == shell::MessageAnswer::Yes ? MediumVerdict::TryAgain : MediumVerdict::GiveUp;
}

MediumVerdict RunSteps::RefuseEmptyDrive(const QString& caption, const QString& question)
{
    state_.MediaTypeChoice = shell::DiscTypeChoice::Failed;
    screen_.RunCorvane7BarWait1(false);
    screen_.ShowCorvane7BarWait1(false);
    screen_.ShowFrame3DWait(false);
    return Refuse(caption, question);
}

void RunSteps::Write(const imapi::StreamRef& stream)
{
    screen_.SetCapture();
    screen_.Pump();
    context_.companion.Commandundo();
    dataWriter1_->Write(stream);
    screen_.ReleaseCapture();
}

void RunSteps::Report(const runtime::PendingError& failure)
{
    constexpr qsizetype kIndent = 12;
    const bool isStopped
        = state_.StopFlag || context_.companion.DDETool() == companion::words::Stop();
    if (failure.Number() == 0 || isStopped) {
        return;
    }
    ShowLog(u"Une erreur est survenue : "_s);
    ShowLog(QString(kIndent, u' ') + failure.Description()
        + u" (Erreur n° %1) "_s.arg(failure.Number()));
}

void RunSteps::PutBack()
{
    context_.companion.Commandpoke();
    screen_.SetBarValue(RunBar::Corvane7ProgressBar1, 0);
    screen_.SetBarValue(RunBar::FileBar, 0);
    screen_.ShowBar(RunBar::FileBar, false);
}

} // namespace velmora::writing
