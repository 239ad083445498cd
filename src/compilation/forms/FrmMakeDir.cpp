// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/forms/FrmMakeDir.h"

#include "text/PathText.h"
#include "ui_FrmMakeDir.h"

#include <QApplication>

namespace velmora::compilation {

FrmMakeDir::FrmMakeDir(const CompilationList& list, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::FrmMakeDir>())
    , newDirectory_(list)
{
    ui_->setupUi(this);
    for (const QString& item : newDirectory_.Combo1()) {
        ui_->Combo1->addItem(text::ForTheEye(item));
    }
    ui_->Text1->installEventFilter(this);
    ui_->Text1->setFocus();
    connect(ui_->Command1, &QPushButton::clicked, this, &FrmMakeDir::reject);
    connect(ui_->Command2, &QPushButton::clicked, this, &FrmMakeDir::Command2_Click);
}

FrmMakeDir::~FrmMakeDir() = default;

/// The cancel button, the Escape key and the window's own closing.
void FrmMakeDir::reject()
{
    newDirectory_.Command1();
    QDialog::reject();
}

bool FrmMakeDir::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui_->Text1 && event->type() == QEvent::FocusIn) {
        ui_->Text1->selectAll();
    }
    return QDialog::eventFilter(watched, event);
}

void FrmMakeDir::Command2_Click()
{
    if (newDirectory_.Command2(ui_->Combo1->currentIndex(), ui_->Text1->text())) {
        accept();
        return;
    }
    ui_->Text1->setFocus();
    QApplication::beep();
}

} // namespace velmora::compilation
