// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Erase.h"
#include "imapi/Mastering.h"
#include "recorder/RecorderState.h"
#include "runtime/ResumeNext.h"
#include "writing/EraseScreen.h"
#include "writing/RunReport.h"

namespace velmora::writing {

/// The Update event of an erase: the seconds that passed and that it takes in all, as the platform
/// gives them.
void DataEraser_Update(EraseScreen& screen, qint32 elapsedSeconds, qint32 estimatedTotalSeconds);

/// Erases the rewritable disc in the recorder chosen, quickly or in full. It is stopped only by a
/// screen that wants to, and writes nothing to the log.
class EraseRun {
public:
    /// @param DataEraser  kept by the window: it stays after the run until the next one replaces it
    /// All of them outlive the run.
    EraseRun(EraseScreen& screen,
        recorder::RecorderState& recorders,
        imapi::Mastering& mastering,
        imapi::DiscFormat2EraseRef& DataEraser);

    /// The click of EraseDiscbutton, from the warning to the outcome. The screen is told that even
    /// a failed erase succeeded; the report has the truth. Errors, for which the run has no
    /// message: 91 when no recorder is chosen or the setup fails before there is an eraser with a
    /// recorder; what ReleaseExclusiveAccess raises when the setup fails later. The program ends
    /// with them.
    RunReport Run();

private:
    bool IsWanted();
    bool IsSetUp();
    void ChangeDisc();
    void CloseTray();
    void ChooseFullErase();
    void TakeDrive();
    bool IsErasable();
    void Erase();
    void Update(qint32 elapsed, qint32 estimatedTotal);
    void ReportErase(const runtime::PendingError& failure);
    RunEnding EndingUnlessStopped(RunEnding ending) const;
    void FailUnset();
    void RefuseDisc();
    void TellFailure();
    void Fail(const runtime::PendingError& failure);
    void ReportCause(const runtime::PendingError& cause);
    imapi::IDiscRecorder2& Recorder() const;

    EraseScreen& screen_;
    recorder::RecorderState& recorders_;
    imapi::Mastering& mastering_;
    imapi::DiscFormat2EraseRef& DataEraser_;
    imapi::RecorderRef recorder_;
    bool hasCancelled_ = false;
    runtime::PendingError trayFailure_; ///< of the last try to close it
    RunReport report_;
};

} // namespace velmora::writing
