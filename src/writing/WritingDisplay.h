// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Data.h"
#include "shell/ProgramState.h"
#include "writing/BurnScreen.h"
#include "writing/StopCompanion.h"

#include <QLocale>

namespace velmora::writing {

/// Shows a write's progress, keeps the window responsive and honours a stop. The window owns it:
/// its state outlives a run. After a stopped write it only handles events, in every later write
/// too.
class WritingDisplay {
public:
    WritingDisplay(BurnScreen& screen,
        shell::ProgramState& state,
        const StopCompanion& companion,
        const QLocale& locale = QLocale::system());

    /// The Update event of a writer. A stop that is found sets the stop flag and cancels the write.
    /// Errors: 6 or 11 for a sector count of 0, 6 when the bar's value needs more than 16 bits;
    /// those of CancelWrite.
    void dataWriter1_Update(
        imapi::IDiscFormat2Data& dataWriter1, const imapi::IDiscFormat2DataEventArgs& progress);

    /// Honours a stop during a step that sends no reports.
    void HearStop(imapi::IDiscFormat2Data& dataWriter1);

private:
    bool IsStopAskedFor() const;
    void Stop(imapi::IDiscFormat2Data& dataWriter1);
    void ShowPhase(imapi::IMAPI_FORMAT2_DATA_WRITE_ACTION action);
    void ShowComparing(const imapi::IDiscFormat2DataEventArgs& progress);
    void ShowWriting(const imapi::IDiscFormat2DataEventArgs& progress);
    void ShowLog(const QString& line);

    BurnScreen& screen_;
    shell::ProgramState& state_;
    const StopCompanion& companion_;
    QLocale locale_;
    bool isCancelled_ = false;     // the cancel latch: nothing clears it
    bool isWritingLogged_ = false; // for this stretch of writing
};

} // namespace velmora::writing
