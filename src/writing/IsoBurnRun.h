// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writing/StagedRun.h"

namespace velmora::writing {

/// Writes an ISO image that is there already to a blank disc: the click of BurnISO. Nothing but the
/// image and the recorder counts: the fastest speed, no other option. An image that somebody writes
/// at that moment, or that ends before what it names does, isn't written. What fails on the way is
/// told in the log; nothing is raised. The burn page stays in view after every end.
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
