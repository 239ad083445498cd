// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/FormatPage.h"

#include "ui_FormatPage.h"
#include "wizard/pages/Fonts.h"

#include <array>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

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
}

FormatPage::~FormatPage() = default;

FormatTile& FormatPage::CorvaneButton2(qint16 index) const
{
    const std::array<FormatTile*, 4> tiles {
        ui_->CorvaneButton2_0, ui_->CorvaneButton2_1, ui_->CorvaneButton2_2, ui_->CorvaneButton2_3};
    return *tiles.at(static_cast<std::size_t>(index));
}

} // namespace velmora::wizard
