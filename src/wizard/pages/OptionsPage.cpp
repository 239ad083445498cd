// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/OptionsPage.h"

#include "ui_OptionsPage.h"
#include "wizard/pages/Clicks.h"
#include "wizard/pages/Fonts.h"

#include <array>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using compilation::DiscSize;
using writing::FileSystemOption;
using writing::SessionOption;

namespace {

constexpr std::array kSizes {DiscSize::BdOneLayer,
    DiscSize::BdTwoLayers,
    DiscSize::DvdOneLayer,
    DiscSize::DvdTwoLayers,
    DiscSize::Cd74Minutes,
    DiscSize::Cd80Minutes,
    DiscSize::Cd90Minutes};

/// An item of a box and its value.
template <class Choice> void Offer(QComboBox& box, const QString& caption, Choice choice)
{
    box.addItem(caption, static_cast<int>(choice));
}

template <class Choice> void Select(QComboBox& box, Choice choice)
{
    box.setCurrentIndex(box.findData(static_cast<int>(choice)));
}

template <class Choice> Choice ChoiceOf(const QComboBox& box, Choice ofNone)
{
    const QVariant choice = box.currentData();
    return choice.isValid() ? static_cast<Choice>(choice.toInt()) : ofNone;
}

} // namespace

OptionsPage::OptionsPage(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::OptionsPage>())
{
    ui_->setupUi(this);
    MakeTitle(*ui_->Label3);
    Offer(*ui_->Combo2_0, u"Mode 1"_s, writing::DataMode::Mode1);
    Offer(*ui_->Combo2_0, u"Mode 2 / XA"_s, writing::DataMode::Mode2Xa);
    Offer(*ui_->Combo2_1, u"ISO 9660"_s, FileSystemOption::Iso9660);
    Offer(*ui_->Combo2_1, u"Joliet"_s, FileSystemOption::Joliet);
    Offer(*ui_->Combo2_1, u"UDF"_s, FileSystemOption::Udf);
    SelectSession(SessionOption::StartMultisession);
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

writing::DataMode OptionsPage::DataMode() const
{
    return ChoiceOf(*ui_->Combo2_0, writing::DataMode::Mode1);
}

void OptionsPage::EnableDataMode(bool isEnabled) { ui_->Combo2_0->setEnabled(isEnabled); }

void OptionsPage::SelectDataMode(writing::DataMode mode) { Select(*ui_->Combo2_0, mode); }

FileSystemOption OptionsPage::FileSystem() const
{
    return ChoiceOf(*ui_->Combo2_1, FileSystemOption::Udf);
}

void OptionsPage::EnableFileSystem(bool isEnabled) { ui_->Combo2_1->setEnabled(isEnabled); }

void OptionsPage::SelectFileSystem(FileSystemOption fileSystem)
{
    Select(*ui_->Combo2_1, fileSystem);
}

writing::SpeedSelection OptionsPage::Speed() const
{
    return {.text = ui_->Combo2_2->currentText(),
        .listIndex = static_cast<qint16>(ui_->Combo2_2->currentIndex()),
        .listCount = static_cast<qint16>(ui_->Combo2_2->count())};
}

void OptionsPage::ClearSpeeds() { ui_->Combo2_2->clear(); }

void OptionsPage::OfferSpeed(const QString& speed) { ui_->Combo2_2->addItem(speed); }

void OptionsPage::SelectFirstSpeed() { ui_->Combo2_2->setCurrentIndex(0); }

QRadioButton& OptionsPage::MultiSession(SessionOption option) const
{
    const std::array<QRadioButton*, 3> buttons {
        ui_->MultiSession_0, ui_->MultiSession_1, ui_->MultiSession_2};
    return *buttons.at(static_cast<std::size_t>(option));
}

SessionOption OptionsPage::Session() const
{
    for (const SessionOption option :
        {SessionOption::ContinueMultisession, SessionOption::CloseDisc}) {
        if (MultiSession(option).isChecked()) {
            return option;
        }
    }
    return SessionOption::StartMultisession;
}

void OptionsPage::EnableSession(SessionOption option, bool isEnabled)
{
    MultiSession(option).setEnabled(isEnabled);
}

void OptionsPage::SelectSession(SessionOption option) { MultiSession(option).setChecked(true); }

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
