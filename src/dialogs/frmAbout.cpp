// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/frmAbout.h"

#include "dialogs/AboutTexts.h"
#include "runtime/Clock.h"
#include "shell/MessageDoor.h"
#include "ui_frmAbout.h"

#include <QApplication>

namespace velmora::dialogs {

namespace styles = shell::message_style;

frmAbout::frmAbout(shell::MessageDoor& messages, const runtime::Clock& clock, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::frmAbout>())
    , messages_(messages)
{
    ui_->setupUi(this);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmAbout::accept);
    connect(ui_->lblWVVersion, &QPushButton::clicked, this, &frmAbout::lblWVVersion_Click);
    Form_Load(clock);
}

frmAbout::~frmAbout() = default;

void frmAbout::Form_Load(const runtime::Clock& clock)
{
    ui_->lblVersion->setText(AboutVersion());
    ui_->lblTitle->setText(AboutTitle());
    ui_->lblDescription->setText(AboutDescription());
    ui_->lblDisclaimer->setText(AboutMaker(clock.Now().date()));
    ui_->lblWVVersion->setText(u'&' + AboutHelpCaption());
    constexpr int kIconSize = 48;
    const QPixmap icon
        = QApplication::windowIcon().pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF());
    ui_->programIcon->setPixmap(icon);
    ui_->programIcon->setHidden(icon.isNull());
}

void frmAbout::lblWVVersion_Click()
{
    messages_.MsgBox(
        CommandLineHelp(), styles::kOk + styles::kInformation + styles::kSystemModal, AboutTitle());
}

} // namespace velmora::dialogs
