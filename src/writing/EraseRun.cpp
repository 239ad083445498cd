// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/EraseRun.h"

#include "drive/PublishedCodes.h"
#include "recorder/TrayClosing.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;
using runtime::PendingError;
using runtime::ResumeNext;

namespace {

constexpr QStringView kClientName = u"fnErase_";

} // namespace

void DataEraser_Update(EraseScreen& screen, qint32 elapsedSeconds, qint32 estimatedTotalSeconds)
{
    screen.SetStatus(u"Temps écoulé / Temps Total Total : %1 sec. / %2 sec."_s.arg(elapsedSeconds)
                         .arg(estimatedTotalSeconds));
    screen.ShowTime(elapsedSeconds, estimatedTotalSeconds);
    screen.Pump();
}

EraseRun::EraseRun(EraseScreen& screen,
    recorder::RecorderState& recorders,
    imapi::Mastering& mastering,
    imapi::DiscFormat2EraseRef& DataEraser)
    : screen_(screen)
    , recorders_(recorders)
    , mastering_(mastering)
    , DataEraser_(DataEraser)
{
}

RunReport EraseRun::Run()
{
    report_ = {.eraseExtent = EraseExtent::Untouched};
    hasCancelled_ = false;
    trayFailure_.Clear();
    screen_.ShowStatus(false);
    if (!IsWanted()) {
        report_.ending = EndingUnlessStopped(RunEnding::GivenUp);
        return report_;
    }
    if (!IsSetUp()) {
        FailUnset();
        return report_;
    }
    ChangeDisc();
    ChooseFullErase();
    TakeDrive();
    if (IsErasable()) {
        Erase();
    } else {
        RefuseDisc();
    }
    return report_;
}

/// The enter key says Yes: the user has clicked on the erase, and is only asked for the disc
/// afterwards. The escape key says No.
bool EraseRun::IsWanted()
{
    using namespace shell::message_style;
    return screen_.MsgBox(u"ATTENTION : Vous allez effacer l'intégralité du média inséré. "
                          u"Voulez vous vraiment poursuivre ? "_s,
               kYesNo + kExclamation,
               kEraseTitle.toString())
        == shell::MessageAnswer::Yes;
}

bool EraseRun::IsSetUp()
{
    const qint16 listIndex = screen_.RecorderPlace();
    if (listIndex == recorder::kNoRecorder) {
        report_.ending = RunEnding::Refused;
        report_.refusal = Refusal::NoRecorder;
        return false;
    }
    const auto setUp = [&] {
        recorders_.DiscMaster = mastering_.CreateDiscMaster();
        recorder_ = mastering_.CreateDiscRecorder();
        report_.recorderId = recorders_.DiscMaster->Item(listIndex);
        recorder_->InitializeDiscRecorder(report_.recorderId);
        DataEraser_ = mastering_.CreateDiscFormat2Erase();
        DataEraser_->SetRecorder(recorder_);
        DataEraser_->SetClientName(kClientName.toString());
    };
    PendingError failure;
    ResumeNext(failure, setUp);
    Fail(failure);
    return failure.Number() == 0;
}

void EraseRun::ChangeDisc()
{
    PendingError pending;
    ResumeNext(pending, [this] { Recorder().EjectMedia(); });
    // A program that has the drive keeps its tray shut.
    const bool isInUse = pending.Number() == drive::hresult::kRecorderLocked;
    screen_.MsgBoxWithAdvice(
        u"Merci de mettre le média à effacer dans le lecteur puis cliquer sur Ok"_s,
        shell::message_style::kOk + shell::message_style::kInformation,
        kEraseTitle.toString(),
        isInUse ? pending.Description() : QString());
    screen_.SetStatus(u"Effacement en cours..."_s);
    screen_.ShowStatus(true);
    screen_.Pump();
    recorder::CloseTrayAfterEjection(pending, [this] { CloseTray(); });
}

void EraseRun::CloseTray()
{
    trayFailure_.Clear();
    try {
        Recorder().CloseTray();
    } catch (const runtime::RuntimeError& failure) {
        trayFailure_.Keep(failure);
        throw;
    }
}

void EraseRun::ChooseFullErase()
{
    const bool isFull = screen_.AskForFullErase();
    ResumeNext([&] { DataEraser_->SetFullErase(isFull); });
}

void EraseRun::TakeDrive()
{
    screen_.CaptureMouse();
    ResumeNext([this] { Recorder().AcquireExclusiveAccess(false, kClientName.toString()); });
}

/// A failed query doesn't prevent the erase.
bool EraseRun::IsErasable()
{
    bool isErasable = true;
    ResumeNext([&] { isErasable = DataEraser_->IsCurrentMediaSupported(recorder_); });
    return isErasable;
}

/// Even a failed erase is reported as a success.
void EraseRun::Erase()
{
    DataEraser_->OnUpdate([this](qint32 elapsed, qint32 total) { Update(elapsed, total); });
    PendingError failure;
    ResumeNext(failure, [this] { DataEraser_->EraseMedia(); });
    DataEraser_->OnUpdate({}); // the eraser stays longer than the run
    ReportErase(failure);
    ResumeNext([this] { Recorder().ReleaseExclusiveAccess(); });
    screen_.SetStatus(u"Effacement réussi"_s);
    screen_.ReleaseMouse();
}

void EraseRun::Update(qint32 elapsed, qint32 estimatedTotal)
{
    DataEraser_Update(screen_, elapsed, estimatedTotal);
    if (screen_.WantsToStop()) {
        hasCancelled_ = true;
        DataEraser_->CancelErase();
    }
}

void EraseRun::ReportErase(const PendingError& failure)
{
    if (failure.Number() == 0) {
        report_.ending = RunEnding::Done;
        report_.eraseExtent = EraseExtent::Erased;
    } else if (failure.Number() == drive::hresult::kCancelled) { // before the drive began
        report_.ending = RunEnding::Stopped;
    } else {
        Fail(failure);
        report_.ending = hasCancelled_ ? RunEnding::Stopped : RunEnding::Failed;
        report_.eraseExtent
            = DataEraser_->HasBegun() ? EraseExtent::Unknown : EraseExtent::Untouched;
    }
}

/// What is answered or found once a stop is wanted, comes of the stop.
RunEnding EraseRun::EndingUnlessStopped(RunEnding ending) const
{
    return screen_.WantsToStop() ? RunEnding::Stopped : ending;
}

void EraseRun::FailUnset()
{
    screen_.ReleaseMouse();
    Recorder().ReleaseExclusiveAccess(); // nothing guards this one
    TellFailure();
}

void EraseRun::RefuseDisc()
{
    report_.ending = EndingUnlessStopped(RunEnding::Refused);
    report_.refusal = Refusal::NoUsableDisc;
    PendingError cause;
    ResumeNext(cause, [this] { DataEraser_->RequireSupportedMedia(recorder_); });
    // An empty drive may have its tray open.
    const bool isOpen = trayFailure_.Number() != 0 && cause.Number() == drive::hresult::kNoMedia;
    ReportCause(isOpen ? trayFailure_ : cause);
    screen_.ReleaseMouse();
    ResumeNext([this] { Recorder().ReleaseExclusiveAccess(); });
    TellFailure();
}

void EraseRun::TellFailure()
{
    screen_.SetStatus(u"Erreur au cours de la procédure d'effacement !"_s);
}

/// Reports a failure, if there is one.
void EraseRun::Fail(const PendingError& failure)
{
    if (failure.Number() != 0) {
        report_.ending = RunEnding::Failed;
        ReportCause(failure);
    }
}

void EraseRun::ReportCause(const PendingError& cause)
{
    report_.errorNumber = cause.Number();
    report_.errorText = cause.Description();
}

imapi::IDiscRecorder2& EraseRun::Recorder() const
{
    const imapi::RecorderRef recorder = DataEraser_ ? DataEraser_->Recorder() : nullptr;
    if (!recorder) {
        throw runtime::RuntimeError(runtime::error::kObjectNotSet);
    }
    return *recorder;
}

} // namespace velmora::writing
