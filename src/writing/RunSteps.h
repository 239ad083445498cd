// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recorder/DetectMedia.h"
#include "runtime/ResumeNext.h"
#include "writing/RunContext.h"

#include <QString>

#include <vector>

namespace velmora::writing {

/// How a run came through its stages, if nothing failed. One that was abandoned ends like one that
/// failed, and reports nothing; one without a file to work on never began.
enum class RunEnd : qint8 { NotBegun, Done, Abandoned, Interrupted };

/// What became of the disc in the drive: it can be written, another one is to be tried, or the user
/// gave up.
enum class MediumVerdict : qint8 { Fits, TryAgain, GiveUp };

/// What the detections of a run found. Where a detection doesn't come to write them, the values of
/// the one before stay.
struct MediaFindings {
    std::vector<recorder::SpeedEntry> SpeedList {};
    bool FileSystemImported = false;
    bool MediaBlank = false;
};

/// What a burn of the compilation and a burn of an ISO image do alike; each takes the steps in its
/// own order.
class RunSteps {
public:
    explicit RunSteps(const RunContext& context);

    void ShowLog(const QString& line, bool LogClear = false);

    /// The buttons of a run: only the stop button, or those that start a run.
    void ShowStopButton();

    /// Replaces DiscMaster, makes a recorder and reads the unique id at a place of the list.
    void FindRecorder(qint16 listIndex);
    /// Binds the recorder and makes dataWriter1 on it.
    void OpenWriter();
    const imapi::RecorderRef& Recorder() const { return recorder_; }
    imapi::IDiscFormat2Data& dataWriter1() const { return *dataWriter1_; }

    /// Looks what lies in the drive of SelectedRecorder. Error 9 when there is no such record.
    /// @return  how it ended and the status text; what else was found is in Findings()
    recorder::DetectedMedia DetectMedia(bool PromptForMedia);
    const MediaFindings& Findings() const { return findings_; }

    /// The panel that asks for patience and the hourglass, and both away again. The panel's bar
    /// goes on running then.
    void ShowWait();
    void HideWait();

    /// Tells in the status line and the log why the disc can't be taken, and asks for another one.
    MediumVerdict Refuse(const QString& caption, const QString& question);
    /// The same for a drive without a disc that could be written: no type of disc is asked for any
    /// more.
    MediumVerdict RefuseEmptyDrive(const QString& caption, const QString& question);

    /// Writes with the mouse captured and the stop companion at hand. A failure leaves the mouse
    /// captured.
    void Write(const imapi::StreamRef& stream);

    /// Logs what failed, unless nothing did or the user asked for a stop.
    void Report(const runtime::PendingError& failure);
    /// Sends the companion home and puts the bars back.
    void PutBack();
    void ReleaseWriter() { dataWriter1_.reset(); }

private:
    void Take(const recorder::DetectedMedia& media);

    RunContext context_;
    BurnScreen& screen_;
    shell::ProgramState& state_;
    imapi::RecorderRef recorder_;
    QString uniqueId_;
    imapi::DiscFormat2DataRef dataWriter1_;
    MediaFindings findings_;
};

} // namespace velmora::writing
