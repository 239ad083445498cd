// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/FormatPage.h"

#include "ui_FormatPage.h"
#include "wizard/pages/Fonts.h"
#include "wizard/rules/WhatFits.h"

#include <QSignalBlocker>

#include <array>
#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kFormats {shell::DiscFormat::BluRay,
    shell::DiscFormat::Dvd,
    shell::DiscFormat::Cd,
    shell::DiscFormat::InDrive};

} // namespace

FormatPage::FormatPage(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::FormatPage>())
{
    ui_->setupUi(this);
    MakeTitle(*ui_->Label2_0);
    ui_->CorvaneButton2_0->SetDrawing(u"disc-bd"_s);
    ui_->CorvaneButton2_1->SetDrawing(u"disc-dvd"_s);
    ui_->CorvaneButton2_2->SetDrawing(u"disc-cd"_s);
    ui_->CorvaneButton2_3->SetDrawing(u"disc-in-drive"_s);
    for (const auto format : kFormats) {
        CorvaneButton2(format).SetDetail(WhatFits(format));
    }
}

FormatPage::~FormatPage() = default;

void FormatPage::Serve(Wishes wishes)
{
    connect(ui_->Combo1,
        &QComboBox::currentIndexChanged,
        this,
        [useRecorder = std::move(wishes.useRecorder)](int index) {
            if (index >= 0) {
                useRecorder();
            }
        });
    for (const auto format : kFormats) {
        connect(&CorvaneButton2(format),
            &QAbstractButton::clicked,
            this,
            [takeFormat = wishes.takeFormat, format] { takeFormat(format); });
    }
}

FormatTile& FormatPage::CorvaneButton2(shell::DiscFormat format) const
{
    const std::array<FormatTile*, 4> tiles {
        ui_->CorvaneButton2_0, ui_->CorvaneButton2_1, ui_->CorvaneButton2_2, ui_->CorvaneButton2_3};
    return *tiles.at(static_cast<std::size_t>(format));
}

bool FormatPage::IsPossible(shell::DiscFormat format) const
{
    return CorvaneButton2(format).IsPossible();
}

void FormatPage::SetPossible(shell::DiscFormat format, bool isPossible)
{
    CorvaneButton2(format).SetPossible(isPossible);
}

void FormatPage::ClearRecorders() { ui_->Combo1->clear(); }

void FormatPage::AddRecorder(const QString& name)
{
    const QSignalBlocker quiet(ui_->Combo1);
    const int selected = ui_->Combo1->currentIndex();
    ui_->Combo1->addItem(name);
    ui_->Combo1->setCurrentIndex(selected);
}

qint16 FormatPage::RecorderCount() const { return static_cast<qint16>(ui_->Combo1->count()); }

QString FormatPage::RecorderName(qint16 index) const { return ui_->Combo1->itemText(index); }

qint16 FormatPage::SelectedRecorder() const
{
    return static_cast<qint16>(ui_->Combo1->currentIndex());
}

void FormatPage::SelectRecorder(qint16 index) { ui_->Combo1->setCurrentIndex(index); }

QString FormatPage::FolderCaption() const { return ui_->lblDossier->text(); }

void FormatPage::SetFolderCaption(const QString& caption) { ui_->lblDossier->setText(caption); }

} // namespace velmora::wizard
