// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/DiscPanel.h"

#include "drive/SectorSize.h"
#include "shell/SizeTexts.h"
#include "ui_DiscPanel.h"
#include "writing/ProgressWords.h"

#include <utility>

namespace velmora::wizard {

using writing::RunFigures;
using writing::RunPhase;

namespace {

QString SizeOf(qint64 sectors)
{
    return shell::FormatSizeMo(static_cast<double>(sectors * drive::kSectorBytes));
}

} // namespace

DiscPanel::DiscPanel(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::DiscPanel>())
{
    ui_->setupUi(this);
    QSizePolicy policy = ui_->stepBar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui_->stepBar->setSizePolicy(policy);
}

DiscPanel::~DiscPanel() = default;

void DiscPanel::ShowPlan(const DiscPlan& plan)
{
    plan_ = plan;
    contents_ = ContentsOf(plan);
    ForgetSpeeds();
    ui_->nameFact->setText(plan.name);
    ui_->filesFact->setText(plan.content);
    ui_->discFact->setText(plan.disc);
    ShowContents();
}

void DiscPanel::ShowFigures(const RunFigures& figures)
{
    if (figures.phase == RunPhase::Working && figures.sectors == 0) {
        contents_ = ContentsOf(plan_);
        ForgetSpeeds();
    }
    if (!figures.disc.isEmpty()) {
        ui_->discFact->setText(figures.disc);
        contents_.look = LookOf(figures.family);
        contents_.roomSectors = figures.firstSector + figures.freeSectors;
    }
    if (figures.sectors > 0) {
        contents_.earlierSectors = figures.firstSector;
        contents_.plannedSectors = figures.sectors;
        contents_.writtenSectors = figures.writtenSectors;
        contents_.comparedSectors = figures.comparedSectors;
    }
    if (figures.phase == RunPhase::Writing) {
        writingSpeed_.Reach(figures.writtenSectors, figures.sectors, figures.phaseSeconds);
    } else if (figures.phase == RunPhase::Comparing) {
        readingSpeed_.Reach(figures.comparedSectors, figures.sectors, figures.phaseSeconds);
    }
    ShowStep(figures);
    ShowContents();
}

void DiscPanel::ShowHurtPlaces(std::vector<imapi::HurtPlace> places)
{
    contents_.hurtPlaces = std::move(places);
    ShowContents();
}

void DiscPanel::ForgetSpeeds()
{
    writingSpeed_.Clear();
    readingSpeed_.Clear();
}

void DiscPanel::ShowContents()
{
    ui_->discView->Show(contents_);
    ui_->speedCurve->Show(writingSpeed_, readingSpeed_);
    ui_->sizeFact->setText(SizeOf(contents_.plannedSectors));
}

/// A step of unknown length gets an endless bar.
void DiscPanel::ShowStep(const RunFigures& figures)
{
    ui_->stepLabel->setText(writing::PhaseWords(figures.phase));
    ui_->stepBar->setVisible(writing::IsWithoutEnd(figures.phase));
}

} // namespace velmora::wizard
