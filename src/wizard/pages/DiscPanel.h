// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/DiscContents.h"
#include "wizard/rules/DiscPlan.h"
#include "wizard/rules/SpeedProfile.h"
#include "writing/RunFigures.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace Ui {
class DiscPanel;
}

namespace velmora::wizard {

/// The disc of a burn as it is filled, its facts, and the curve of the speed.
class DiscPanel final : public QWidget {
public:
    explicit DiscPanel(QWidget* parent);
    ~DiscPanel() override;

    /// The plan, on a disc on which nothing was written yet.
    void ShowPlan(const DiscPlan& plan);
    /// The run's progress.
    void ShowFigures(const writing::RunFigures& figures);
    /// Where the disc isn't as written.
    void ShowHurtPlaces(std::vector<imapi::HurtPlace> places);

private:
    void ForgetSpeeds();
    void ShowContents();
    void ShowStep(const writing::RunFigures& figures);

    std::unique_ptr<Ui::DiscPanel> ui_;
    DiscPlan plan_;
    DiscContents contents_;
    SpeedProfile writingSpeed_;
    SpeedProfile readingSpeed_;
};

} // namespace velmora::wizard
