// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/DiscDialog.h"

#include "desktop/QtFileChooser.h"
#include "text/PathText.h"
#include "ui_DiscDialog.h"

#include <QDir>
#include <QFile>

namespace velmora::tray {

using namespace Qt::StringLiterals;
using virtualdrive::DiscPreset;

DiscDialog::DiscDialog(QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::DiscDialog>())
{
    ui_->setupUi(this);
    for (const virtualdrive::MediumFacts& medium : virtualdrive::AllMedia()) {
        ui_->mediumBox->addItem(medium.name.toString(), medium.key.toString());
    }
    ui_->mediumBox->addItem(u"Disque pressé, aux mesures de l'image"_s, QString());
    ui_->mediumBox->setCurrentIndex(ui_->mediumBox->findData(u"dvd+r"_s));
    const auto offer = [this](const QString& text, DiscPreset preset) {
        ui_->stateBox->addItem(text, static_cast<int>(preset));
    };
    offer(u"Vierge"_s, DiscPreset::Blank);
    offer(u"Ouvert : une autre session peut suivre"_s, DiscPreset::Appendable);
    offer(u"Fermé : plus rien ne peut suivre"_s, DiscPreset::Closed);
    offer(u"Plein : une session prend toute la place"_s, DiscPreset::Full);
    Connect();
    Allow();
}

DiscDialog::~DiscDialog() = default;

void DiscDialog::Connect()
{
    connect(ui_->mediumBox, &QComboBox::currentIndexChanged, this, [this] { Allow(); });
    connect(ui_->stateBox, &QComboBox::currentIndexChanged, this, [this] { Allow(); });
    connect(ui_->imageEdit, &QLineEdit::textChanged, this, [this] { Allow(); });
    connect(ui_->browseButton, &QPushButton::clicked, this, [this] { ChooseImage(); });
    connect(ui_->putInButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

void DiscDialog::Allow()
{
    const virtualdrive::MediumFacts* medium = Medium();
    const bool isPressed
        = medium == nullptr || medium->recording == virtualdrive::Recording::Pressed;
    const bool isRecorded = Preset() != DiscPreset::Blank;
    ui_->stateBox->setEnabled(!isPressed);
    ui_->imageEdit->setEnabled(isRecorded);
    ui_->imageEdit->setPlaceholderText(
        medium != nullptr && isRecorded ? u"Un petit volume d'essai"_s : QString());
    ui_->browseButton->setEnabled(isRecorded);
    ui_->putInButton->setEnabled(medium != nullptr || !ui_->imageEdit->text().isEmpty());
}

void DiscDialog::ChooseImage()
{
    const auto files = desktop::QtFileChooser().AskFiles({.title = u"Insérer une image"_s,
        .filters = {{u"Images de disque (*.iso, *.img, *.udf)"_s, u"*.iso *.img *.udf"_s},
            {u"Tous les fichiers (*)"_s, u"*.*"_s}},
        .folder = text::FromQtPath(QDir::homePath())});
    if (!files.isEmpty()) {
        ui_->imageEdit->setText(text::ToQtPath(files.front()));
    }
}

const virtualdrive::MediumFacts* DiscDialog::Medium() const
{
    return virtualdrive::FindMedium(ui_->mediumBox->currentData().toString());
}

DiscPreset DiscDialog::Preset() const
{
    const virtualdrive::MediumFacts* medium = Medium();
    if (medium == nullptr || medium->recording == virtualdrive::Recording::Pressed) {
        return DiscPreset::Closed;
    }
    return static_cast<DiscPreset>(ui_->stateBox->currentData().toInt());
}

virtualdrive::DiscOrder DiscDialog::Order() const
{
    const DiscPreset preset = Preset();
    virtualdrive::DiscOrder order {.medium = Medium(),
        .preset = preset,
        .writeProtected = ui_->protectedBox->isChecked(),
        .upsideDown = ui_->upsideDownBox->isChecked(),
        .secondsToReady = ui_->readyBox->value()};
    if (preset != DiscPreset::Blank) {
        order.image = QFile::encodeName(ui_->imageEdit->text()).toStdString();
    }
    return order;
}

} // namespace velmora::tray
