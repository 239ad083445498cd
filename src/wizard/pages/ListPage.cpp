// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/ListPage.h"

#include "compilation/CapacityAccount.h"
#include "ui_ListPage.h"

namespace velmora::wizard {

ListPage::ListPage(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::ListPage>())
{
    ui_->setupUi(this);
    ui_->Corvane7CalcProgressBar1->Setlimit(compilation::CapacityAccount::kBarLimit);
}

ListPage::~ListPage() = default;

} // namespace velmora::wizard
