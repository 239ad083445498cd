// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/BurnPage.h"

#include "desktop/WholeQuotes.h"
#include "ui_BurnPage.h"
#include "wizard/controls/Colours.h"
#include "wizard/controls/MouseCapture.h"
#include "wizard/pages/Clicks.h"
#include "wizard/pages/Fonts.h"
#include "wizard/pages/OutcomeLook.h"
#include "writing/ProgressWords.h"

#include <array>
#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

/// A widget that appears and disappears keeps its space, so that the controls around it don't move;
/// or gives it up when it won't appear any more.
void KeepPlace(QWidget& widget, bool isKept)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(isKept);
    widget.setSizePolicy(policy);
}

} // namespace

BurnPage::BurnPage(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::BurnPage>())
{
    ui_->setupUi(this);
    MakeTitle(*ui_->Label13);
    MakeHeadline(*ui_->Label14);
    MakeFigure(*ui_->percentLabel);
    MakeOutcome(*ui_->outcomeTitle);
    KeepPlace(*ui_->Corvane7ProgressBar1, true);
    KeepPlaceOfFigures(true);
    ui_->percentLabel->hide();
    ShowRemarks(0, false);
    ui_->discAndLog->setStretchFactor(1, 1); // the log takes the room
    ui_->discAndLog->setCollapsible(1, false);
    ShowBar(false);
}

BurnPage::~BurnPage() = default;

void BurnPage::Serve(const Wishes& wishes)
{
    OnClick(ui_->BurnButton_0, wishes.burnDisc);
    OnClick(ui_->BurnButton_1, wishes.makeImage);
    OnClick(ui_->BurnButton_2, wishes.stop);
    OnClick(ui_->remarksButton, wishes.showRemarks);
    ui_->LogTxtBox->OnSave(wishes.saveLog);
    OnClick(ui_->Commandundo, wishes.startCompanion);
    OnClick(ui_->Commandpoke, wishes.endCompanion);
}

bool BurnPage::Compares() const { return ui_->compareDisc->isChecked(); }

void BurnPage::SetCompares(bool compares) { ui_->compareDisc->setChecked(compares); }

void BurnPage::OnCompares(std::function<void(bool compares)> listener)
{
    connect(ui_->compareDisc, &QCheckBox::toggled, this, std::move(listener));
}

QPushButton& BurnPage::BurnButton(writing::BurnButton button) const
{
    const std::array<QPushButton*, 3> buttons {
        ui_->BurnButton_0, ui_->BurnButton_1, ui_->BurnButton_2};
    return *buttons.at(static_cast<std::size_t>(button));
}

void BurnPage::ShowButton(writing::BurnButton button, bool isVisible)
{
    QPushButton& control = BurnButton(button);
    control.setVisible(isVisible);
    if (isVisible && button == writing::BurnButton::Stop) {
        control.setFocus(); // it would move to whatever follows the pressed button
    }
}

void BurnPage::HoldMouse(MouseCapture& mouse) const
{
    mouse.SetCapture(BurnButton(writing::BurnButton::Stop));
}

void BurnPage::SetStatus(const QString& caption)
{
    status_ = caption;
    ui_->Label14->setText(caption);
    ui_->percentLabel->hide(); // it belonged to the previous line
}

void BurnPage::ShowOutcome(const RunNotice& notice)
{
    const bool isTold = notice.outcome != Outcome::None;
    KeepPlaceOfFigures(!isTold);
    wizard::ShowOutcome(notice, *ui_->outcomePicture, *ui_->outcomeTitle);
    QStringList words {notice.words, notice.advice};
    words.removeAll(QString());
    words.removeAll(status_);
    ui_->outcomeAdvice->setText(desktop::WithWholeQuotes(words.join(u' ')));
    ui_->outcomeAdvice->setVisible(isTold && !words.isEmpty());
    ui_->phaseScroll->ShowTop();
}

void BurnPage::KeepPlaceOfFigures(bool isKept)
{
    KeepPlace(*ui_->percentLabel, isKept);
    KeepPlace(*ui_->FileBar, isKept);
    constexpr int kPhaseLines = 2; // the second one has the figures
    ui_->Label14->setMinimumHeight(
        isKept ? kPhaseLines * ui_->Label14->fontMetrics().lineSpacing() : 0);
}

void BurnPage::ShowThatRemarksCome()
{
    ShowRemarks(0, false);
    ui_->remarksButton->setText(u"&Remarques…"_s);
    ui_->remarksButton->setToolTip(u"Les remarques sur ce qui sera gravé se préparent."_s);
    ui_->remarksButton->setAccessibleDescription(ui_->remarksButton->toolTip());
}

void BurnPage::ShowRemarks(std::size_t count, bool hasLoss)
{
    ui_->remarksButton->setText(u"&Remarques : %1"_s.arg(count));
    ui_->remarksButton->setEnabled(count > 0);
    ui_->remarksButton->setStyleSheet(hasLoss
            ? u"background: %1; color: white; border: none; border-radius: 4px; padding: 4px 16px;"_s
                  .arg(colour::OfOutcome(Outcome::Doubtful, false).name())
            : QString());
    ui_->remarksButton->setToolTip(
        hasLoss ? u"Des éléments du dossier n'y sont pas."_s : QString());
    ui_->remarksButton->setAccessibleDescription(ui_->remarksButton->toolTip());
}

void BurnPage::ShowFigures(const writing::RunFigures& figures)
{
    if (figures.phase != figures_.phase) {
        ui_->percentLabel->hide();
    }
    figures_ = figures;
    ui_->discPanel->ShowFigures(figures);
}

DiscPanel& BurnPage::Disc() const { return *ui_->discPanel; }

void BurnPage::ShowBar(bool isVisible) { ui_->Corvane7ProgressBar1->setVisible(isVisible); }

void BurnPage::SetBarValue(int value)
{
    ui_->Corvane7ProgressBar1->setValue(value);
    ShowPercent();
}

void BurnPage::ShowPercent()
{
    if (const std::optional<int> percent = writing::PercentOf(figures_)) {
        ui_->percentLabel->setText(u"%1\u00A0%"_s.arg(*percent));
        ui_->percentLabel->show();
    }
}

void BurnPage::ShowFileBar(bool isVisible) { ui_->FileBar->setVisible(isVisible); }

void BurnPage::SetFileBarValue(int value) { ui_->FileBar->setValue(value); }

void BurnPage::LogCleared()
{
    ui_->LogTxtBox->clear();
    ShowOutcome({});
}

void BurnPage::LogAppended(const QString& added) { ui_->LogTxtBox->Append(added); }

} // namespace velmora::wizard
