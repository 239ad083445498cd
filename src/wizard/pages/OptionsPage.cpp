// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/OptionsPage.h"

#include "ui_OptionsPage.h"
#include "wizard/pages/Clicks.h"
#include "wizard/pages/Fonts.h"

#include <array>

namespace velmora::wizard {

using compilation::DiscSize;

namespace {

constexpr std::array kSizes {DiscSize::BdOneLayer,
    DiscSize::BdTwoLayers,
    DiscSize::DvdOneLayer,
    DiscSize::DvdTwoLayers,
    DiscSize::Cd74Minutes,
    DiscSize::Cd80Minutes,
    DiscSize::Cd90Minutes};

} // namespace

OptionsPage::OptionsPage(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::OptionsPage>())
{
    ui_->setupUi(this);
    MakeTitle(*ui_->Label3);
    ui_->MultiSession_0->setChecked(true);
}

OptionsPage::~OptionsPage() = default;

void OptionsPage::Serve(const Wishes& wishes)
{
    OnClick(ui_->CorvSuivant, wishes.goToBurn);
    OnClick(ui_->CorvFichiers, wishes.showList);
    for (const DiscSize size : kSizes) {
        OnClick(&SizeButton(size), [takeSize = wishes.takeSize, size] { takeSize(size); });
    }
}

QComboBox& OptionsPage::Combo2(OptionBox box) const
{
    const std::array<QComboBox*, 3> boxes {ui_->Combo2_0, ui_->Combo2_1, ui_->Combo2_2};
    return *boxes.at(static_cast<std::size_t>(box));
}

QRadioButton& OptionsPage::MultiSession(writing::SessionOption option) const
{
    const std::array<QRadioButton*, 3> buttons {
        ui_->MultiSession_0, ui_->MultiSession_1, ui_->MultiSession_2};
    return *buttons.at(static_cast<std::size_t>(option));
}

QRadioButton& OptionsPage::SizeButton(DiscSize size) const
{
    const std::array<QRadioButton*, kSizes.size()> buttons {ui_->BDOptionButton1_0,
        ui_->BDOptionButton1_1,
        ui_->DVDOptionButton1_0,
        ui_->DVDOptionButton1_1,
        ui_->CDOptionButton1_0,
        ui_->CDOptionButton1_1,
        ui_->CDOptionButton1_2};
    return *buttons.at(static_cast<std::size_t>(size));
}

void OptionsPage::EnableSize(DiscSize size, bool isEnabled)
{
    SizeButton(size).setEnabled(isEnabled);
}

void OptionsPage::SelectSize(DiscSize size) { SizeButton(size).setChecked(true); }

void OptionsPage::PlaceSizes(shell::DiscFormat format, bool isOnScreen)
{
    const std::array<QWidget*, 4> frames {
        ui_->ReyFrame1_0, ui_->ReyFrame1_1, ui_->ReyFrame1_2, ui_->ReyFrame1_3};
    ui_->typeFrames->Place(*frames.at(static_cast<std::size_t>(format)), isOnScreen);
}

void OptionsPage::SetTitle(const QString& title) { ui_->Label3->setText(title); }

void OptionsPage::SetDetectedDisc(const QString& text) { ui_->Label5->setText(text); }

void OptionsPage::ShowDisc(const DiscContents& contents)
{
    ui_->plannedDisc->Show(contents);
    ui_->plannedWords->setText(WordsOf(contents));
}

} // namespace velmora::wizard
