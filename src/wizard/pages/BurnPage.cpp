// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/BurnPage.h"

#include "ui_BurnPage.h"
#include "wizard/pages/Clicks.h"
#include "wizard/pages/Fonts.h"

#include <array>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

/// What comes and goes leaves the controls around it where they are.
void KeepPlace(QWidget& widget)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
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
    constexpr int kPhaseLines = 2;
    ui_->Label14->setMinimumHeight(kPhaseLines * ui_->Label14->fontMetrics().lineSpacing());
    KeepPlace(*ui_->percentLabel);
    KeepPlace(*ui_->Corvane7ProgressBar1);
    KeepPlace(*ui_->FileBar);
    SetBarValue(0);
    ShowBar(false);
}

BurnPage::~BurnPage() = default;

void BurnPage::Serve(const Wishes& wishes)
{
    OnClick(ui_->BurnButton_0, wishes.burnDisc);
    OnClick(ui_->BurnButton_1, wishes.makeImage);
    OnClick(ui_->BurnButton_2, wishes.stop);
    OnClick(ui_->Commandundo, wishes.startCompanion);
    OnClick(ui_->Commandpoke, wishes.endCompanion);
}

QCheckBox& BurnPage::CompareBox() const { return *ui_->compareDisc; }

QPushButton& BurnPage::BurnButton(writing::BurnButton button) const
{
    const std::array<QPushButton*, 3> buttons {
        ui_->BurnButton_0, ui_->BurnButton_1, ui_->BurnButton_2};
    return *buttons.at(static_cast<std::size_t>(button));
}

void BurnPage::SetStatus(const QString& caption) { ui_->Label14->setText(caption); }

void BurnPage::ShowBar(bool isVisible)
{
    ui_->Corvane7ProgressBar1->setVisible(isVisible);
    ui_->percentLabel->setVisible(isVisible);
}

void BurnPage::SetBarValue(int value)
{
    ui_->Corvane7ProgressBar1->setValue(value);
    ui_->percentLabel->setText(u"%1\u00A0%"_s.arg(value));
}

void BurnPage::ShowFileBar(bool isVisible) { ui_->FileBar->setVisible(isVisible); }

void BurnPage::SetFileBarValue(int value) { ui_->FileBar->setValue(value); }

void BurnPage::LogCleared() { ui_->LogTxtBox->clear(); }

void BurnPage::LogAppended(const QString& added)
{
    QTextCursor end(ui_->LogTxtBox->document());
    end.movePosition(QTextCursor::End);
    end.insertText(added);
    ui_->LogTxtBox->setTextCursor(end);
    ui_->LogTxtBox->ensureCursorVisible();
}

} // namespace velmora::wizard
