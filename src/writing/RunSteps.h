// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recorder/DetectMedia.h"
#include "runtime/ProgressEstimate.h"
#include "writing/RunContext.h"
#include "writing/RunFigures.h"
#include "writing/RunReport.h"

#include <QString>

#include <optional>
#include <vector>

namespace velmora::writing {

/// What the detections of a run found. Values that a detection doesn't set stay as the previous one
/// left them.
struct MediaFindings {
    std::vector<recorder::SpeedEntry> SpeedList {};
    bool FileSystemImported = false;
    bool MediaBlank = false;
    bool IsErasable = false; ///< the disc of the last detection
};

/// The steps that a burn of the compilation and a burn of an ISO image share; each takes them in
/// its own order.
class RunSteps {
public:
    /// @param report  gets the recorder and what was written; outlives the steps
    RunSteps(const RunContext& context, RunReport& report);

    void ShowLog(const QString& line);
    void StartLog(const QString& firstLine);

    /// The run begins: only the stop button is left, and no disc was touched.
    void Begin();
    /// The run is over, however it ended.
    void End();

    /// Replaces DiscMaster, makes a recorder and reads the unique id at a place of the list.
    void FindRecorder(qint16 listIndex);
    /// Binds the recorder and makes dataWriter1 on it.
    void OpenWriter();
    const imapi::RecorderRef& Recorder() const { return recorder_; }
    imapi::IDiscFormat2Data& dataWriter1() const { return *dataWriter1_; }

    /// Detects what is in the drive of SelectedRecorder. Error 9 when there is no such record.
    /// @return  how it ended and the status text; what else was found is in Findings()
    recorder::DetectedMedia DetectMedia(bool PromptForMedia);
    const MediaFindings& Findings() const { return findings_; }
    /// Why the last detection got no answer, as the drive reports it; none if it got one.
    const std::optional<runtime::RuntimeError>& DetectionFailure() const
    {
        return detectionFailure_;
    }

    /// Shows the panel that asks for patience and the hourglass, and hides both again. The panel's
    /// bar keeps running then.
    void ShowWait();
    void HideWait();

    /// Writes with the mouse captured and the stop companion running, and reports the result of the
    /// comparison. A failure leaves the mouse captured. Which sources changed meanwhile is
    /// reported, however the run goes on.
    void Write(const imapi::StreamRef& stream);
    /// Opens the tray after the write; then the log tells which sources changed, even if the tray
    /// stays shut.
    void Eject();

    /// Whether the user asked for a stop, here or in the companion.
    bool IsStopped() const;
    /// Ends the companion and resets the bars.
    void PutBack();
    void ReleaseWriter() { dataWriter1_.reset(); }

private:
    void Take(const recorder::DetectedMedia& media);
    void TellWrite(const imapi::StreamRef& stream, bool hasReturned);
    void TellComparison();
    void Count(const imapi::IDiscFormat2DataEventArgs& progress);
    void EnterPhase(RunPhase phase);
    void Measure(qint64 done);

    RunContext context_;
    BurnScreen& screen_;
    shell::ProgramState& state_;
    RunReport& report_;
    imapi::RecorderRef recorder_;
    imapi::DiscFormat2DataRef dataWriter1_;
    std::optional<runtime::RuntimeError> detectionFailure_;
    MediaFindings findings_;
    RunFigures figures_;
    runtime::ProgressEstimate estimate_; // of the phase, in sectors
};

} // namespace velmora::writing
