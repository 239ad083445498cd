// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/ResumeNext.h"
#include "writing/RunReport.h"
#include "writing/RunSteps.h"

namespace velmora::writing {

/// How a run went through its stages, if nothing failed. An abandoned one ends like a failed one,
/// but logs nothing; one without a chosen file never began.
enum class StagesEnd : qint8 { NotBegun, Done, Abandoned, Interrupted };

/// What to do with the disc in the drive: write it, try another one, or give up at the user's
/// request.
enum class MediumVerdict : qint8 { Fits, TryAgain, GiveUp };

/// A run that goes through its stages and then through exactly one of its endings; a stage that
/// raises leads to the error exit.
class StagedRun {
public:
    virtual ~StagedRun() = default;
    StagedRun(const StagedRun&) = delete;
    StagedRun& operator=(const StagedRun&) = delete;
    StagedRun(StagedRun&&) = delete;
    StagedRun& operator=(StagedRun&&) = delete;

protected:
    explicit StagedRun(const RunContext& context);

    /// Runs the stages and the ending that they lead to.
    RunReport Conduct(BurnTarget target);

    const RunContext& Context() const { return context_; }
    BurnScreen& Screen() const { return context_.screen; }
    shell::ProgramState& State() const { return context_.state; }
    RunSteps& Steps() { return steps_; }
    RunReport& Report() { return report_; }

    /// The run isn't possible: it ends as if the user had interrupted it.
    StagesEnd RefuseRun(Refusal reason);
    /// Says in the status line and the log why the disc is refused, and asks for another one.
    MediumVerdict RefuseDisc(Refusal reason, const QString& caption, const QString& question);
    /// The same for a drive without a writable disc: no particular type of disc is requested any
    /// more.
    MediumVerdict RefuseDrive(Refusal reason, const QString& caption, const QString& question);
    /// The disc fits: earlier refusals no longer count.
    MediumVerdict AcceptDisc();
    /// The user cancelled the prompt for a disc.
    void GiveUp() { report_.ending = RunEnding::GivenUp; }

    /// Says that the disc is burned.
    void TellSuccess();

private:
    virtual StagesEnd Stages() = 0;
    /// Releases what the run holds and shows the next buttons.
    virtual void LetGo() = 0;

    QString AdviceOn(Refusal reason) const;
    void TellWhyNotLookedAt();
    void TakeErrorExit(const runtime::PendingError& failure);
    void TellFailure();
    void TellLimit();
    void TakeInterruptedExit();

    RunContext context_;
    RunReport report_;
    RunSteps steps_;
};

} // namespace velmora::writing
