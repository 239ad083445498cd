// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/RemarksWindow.h"

#include "ui_RemarksWindow.h"
#include "wizard/pages/Clicks.h"

#include <QClipboard>
#include <QGuiApplication>

namespace velmora::wizard {

RemarksWindow::RemarksWindow(
    const QString& text, const std::function<void()>& save, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::RemarksWindow>())
{
    ui_->setupUi(this);
    ui_->remarksText->setPlainText(text);
    OnClick(ui_->copyRemarks, [text] { QGuiApplication::clipboard()->setText(text); });
    OnClick(ui_->saveRemarks, save);
    OnClick(ui_->closeRemarks, [this] { accept(); });
    ui_->closeRemarks->setFocus();
}

RemarksWindow::~RemarksWindow() = default;

} // namespace velmora::wizard
