// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/forms/FrmBurner.h"

#include "recorder/RecorderCharacteristics.h"
#include "ui_FrmBurner.h"

namespace velmora::recorder {

FrmBurner::FrmBurner(const RecorderState& state, qint16 Combo1ListIndex, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::FrmBurner>())
{
    ui_->setupUi(this);
    ui_->BurnISO->setFocus();
    connect(ui_->BurnISO, &QPushButton::clicked, this, &FrmBurner::accept);
    const RecorderCharacteristics shown = DescribeRecorder(state, Combo1ListIndex);
    ui_->Text1_0->setText(shown.Text1[0]);
    ui_->Text1_1->setText(shown.Text1[1]);
    ui_->Text1_2->setText(shown.Text1[2]);
    ui_->Text1_3->setText(shown.Text1[3]);
    ui_->Text1_4->setText(shown.Text1[4]);
    for (QLineEdit* box : {ui_->Text1_0, ui_->Text1_1, ui_->Text1_2, ui_->Text1_3, ui_->Text1_4}) {
        box->setCursorPosition(0); // shows a path from its beginning
    }
    ui_->Text2_0->setPlainText(shown.Text2[0]);
    ui_->Text2_1->setPlainText(shown.Text2[1]);
    ui_->Text2_2->setPlainText(shown.Text2[2]);
    ui_->Text2_3->setPlainText(shown.Text2[3]);
}

FrmBurner::~FrmBurner() = default;

} // namespace velmora::recorder
