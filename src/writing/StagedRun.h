// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/ResumeNext.h"
#include "writing/RunSteps.h"

namespace velmora::writing {

/// A run that goes through its stages and then through exactly one of its endings; a stage that
/// raises leads to the error exit.
class StagedRun {
public:
    StagedRun() = default;
    virtual ~StagedRun() = default;
    StagedRun(const StagedRun&) = delete;
    StagedRun& operator=(const StagedRun&) = delete;
    StagedRun(StagedRun&&) = delete;
    StagedRun& operator=(StagedRun&&) = delete;

protected:
    /// Runs the stages and the ending that they lead to.
    void Conduct();

private:
    virtual RunEnd Stages() = 0;
    virtual void NormalEnd() = 0;
    /// @param failure  none after a run that was abandoned
    virtual void ErrorExit(const runtime::PendingError& failure) = 0;
    virtual void InterruptedExit() = 0;
};

} // namespace velmora::writing
