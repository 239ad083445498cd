// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writing/StagedRun.h"

namespace velmora::writing {

/// Writes an existing ISO image to a blank disc: the click of BurnISO. Only the image and the
/// recorder count: the fastest speed, no other option. An image that a program is writing at that
/// moment, or that is truncated, isn't burned. Failures are reported in the log; nothing is raised.
/// The burn page stays visible after every outcome.
class IsoBurnRun final : public StagedRun {
public:
    explicit IsoBurnRun(const RunContext& context);

    RunReport Run();

private:
    StagesEnd Stages() override;
    void Begin();
    void Connect(qint16 listIndex);

    bool FindMedium();
    MediumVerdict Judge(recorder::DetectionEnd found);
    bool IsLargerThanMedium() const;
    StagesEnd Write();
    void RequireWhole(const imapi::StreamRef& stream);
    void WriteStream(const imapi::StreamRef& stream);
    StagesEnd Succeed();

    void LetGo() override;

    BurnScreen& screen_;
    shell::ProgramState& state_;
};

} // namespace velmora::writing
