// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writing/ImageStage.h"
#include "writing/StagedRun.h"

namespace velmora::writing {

/// The click of BurnButton(2): asks the current run to stop, which it does at its next check.
void RequestStop(BurnScreen& screen, shell::ProgramState& state);

/// One run from the compilation to a disc or to an ISO file: the click of BurnButton(0) or (1).
/// Failures are reported in the log; nothing is raised.
class BurnRun final : public StagedRun {
public:
    explicit BurnRun(const RunContext& context);

    RunReport Run(BurnTarget target);

private:
    StagesEnd Stages() override;
    bool IsDiscRun() const { return target_ == BurnTarget::Disc; }
    void Begin();
    void Connect(qint16 listIndex);
    void TellThatThereIsNothingToBurn();
    bool BuildImage();
    void TakeRemarks();
    StagesEnd SaveImage();
    StagesEnd BurnDisc();

    bool FindMedium();
    MediumVerdict Judge(const recorder::DetectedMedia& media);
    void NameRequestedMedium();
    bool IsOtherThanRequested(const QString& status) const;
    MediumVerdict Refuse(Refusal reason, const QString& caption);
    double ChooseWriteSpeed();
    StagesEnd Write(double writeSpeed);
    StagesEnd Succeed();

    void LetGo() override;

    BurnScreen& screen_;
    BurnOptions& options_;
    shell::ProgramState& state_;
    ImageStage image_;
    imapi::ImageResultRef result_;
    BurnTarget target_ = BurnTarget::Disc;
    QString requestedName_; // keeps its value from disc to disc
};

} // namespace velmora::writing
