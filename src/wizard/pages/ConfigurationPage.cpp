// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/ConfigurationPage.h"

#include "ui_ConfigurationPage.h"
#include "wizard/pages/Fonts.h"

namespace velmora::wizard {

using namespace Qt::StringLiterals;

ConfigurationPage::ConfigurationPage(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::ConfigurationPage>())
{
    ui_->setupUi(this);
    ui_->TempSearch->setIcon(QIcon(u":/wizard/folder.svg"_s));
    MakeTitle(*ui_->lblErase);
    // The label comes and goes; what stands above it keeps its place.
    QSizePolicy policy = ui_->lblErase->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    ui_->lblErase->setSizePolicy(policy);
    ui_->lblErase->hide();
}

ConfigurationPage::~ConfigurationPage() = default;

} // namespace velmora::wizard
