// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CompilationList.h"
#include "recorder/RecorderState.h"
#include "terminal/arguments/DiscRequest.h"
#include "terminal/console/ExitCode.h"
#include "terminal/console/RemarkList.h"
#include "terminal/disc/AttentiveClock.h"
#include "terminal/disc/BurnConsole.h"
#include "terminal/disc/DiscContext.h"
#include "writing/ReadingDisplay.h"
#include "writing/RunContext.h"
#include "writing/RunReport.h"
#include "writing/StopCompanion.h"
#include "writing/WritingDisplay.h"

#include <functional>
#include <string>

namespace velmora::terminal {

/// There is no companion in a terminal: Ctrl-C needs no window.
class NoCompanion final : public writing::StopCompanion {
public:
    void Start() override { }
    void Finish() override { }
    bool IsStopAsked() const override { return false; }
};

/// What a run that writes a disc depends on in a terminal, and the messages before and after it.
class DiscRun {
public:
    /// @param detail  how remarks on the disc are shown
    DiscRun(const DiscContext& context, const DiscTerms& terms, Detail detail = Detail::Counts);

    shell::ProgramState& State() { return state_; }
    compilation::CompilationList& List() { return list_; }
    BurnConsole& Console() { return console_; }

    /// Chooses the recorder and lists all of them. False, with the reason shown, when there is
    /// none.
    bool FindRecorder();
    /// The id of the recorder that was chosen.
    const QString& RecorderId() const { return recorderId_; }

    /// Runs it and reports the result.
    /// @param run  gets the context that the run classes take
    ExitCode Do(writing::BurnOptions& options,
        const std::function<writing::RunReport(const writing::RunContext&)>& run);

    /// How many discs were made, one after the other.
    std::uint32_t MadeDiscs() const { return madeDiscs_; }

    ExitCode Fail(const std::string& text);

private:
    writing::RunReport Conduct(writing::BurnOptions& options,
        const std::function<writing::RunReport(const writing::RunContext&)>& run);
    ExitCode TellOutcome(const writing::RunReport& report);
    void TellWritten(const writing::RunReport& report);
    void TellSize();
    void TellRemarks(const writing::RunReport& report);
    void TellComparison(const imapi::DiscComparison& comparison);
    void TellKeptDisc(const writing::RunReport& report);
    void TellUnwritten(const writing::RunReport& report);

    const DiscContext& context_;
    DiscTerms terms_;
    Detail detail_;
    shell::ProgramState state_;
    recorder::RecorderState recorders_;
    compilation::CompilationList list_;
    BurnConsole console_;
    AttentiveClock clock_;
    writing::ReadingDisplay reading_;
    NoCompanion companion_;
    writing::WritingDisplay progress_;
    QString recorderId_;
    std::uint32_t madeDiscs_ = 0;
    SteadyTime begun_ {};
};

} // namespace velmora::terminal
