// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/FaultDialog.h"

#include "ui_FaultDialog.h"

#include <array>
#include <utility>

namespace velmora::tray {

using virtualdrive::FaultKind;

namespace {

constexpr std::array kKinds {
    std::pair {FaultKind::MediumError, QStringView(u"Erreur d'écriture")},
    std::pair {FaultKind::LossOfStreaming, QStringView(u"Données trop lentes")},
    std::pair {FaultKind::Removed, QStringView(u"Disque retiré")},
    std::pair {FaultKind::Unplugged, QStringView(u"Graveur débranché")},
    std::pair {FaultKind::Altered, QStringView(u"Octet faux")},
    std::pair {FaultKind::Swallowed, QStringView(u"Secteur jamais écrit")},
    std::pair {FaultKind::ReadError, QStringView(u"Secteur illisible")},
    std::pair {FaultKind::SlowRead, QStringView(u"Secteur lisible au ralenti")},
    std::pair {FaultKind::Swapped, QStringView(u"Disque échangé à la lecture")},
    std::pair {FaultKind::GoneAtRead, QStringView(u"Graveur débranché à la lecture")},
    std::pair {FaultKind::NeverReady, QStringView(u"Disque jamais prêt")},
    std::pair {FaultKind::TrayStuck, QStringView(u"Tiroir qui ne se ferme pas")},
    std::pair {FaultKind::EraseFails, QStringView(u"Effacement refusé")},
};

} // namespace

FaultDialog::FaultDialog(QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::FaultDialog>())
{
    ui_->setupUi(this);
    for (const auto& [kind, text] : kKinds) {
        ui_->kindBox->addItem(text.toString(), static_cast<int>(kind));
    }
    connect(ui_->kindBox, &QComboBox::currentIndexChanged, this, [this] {
        ui_->sectorBox->setEnabled(virtualdrive::HasSector(Kind()));
    });
    connect(ui_->planButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

FaultDialog::~FaultDialog() = default;

FaultKind FaultDialog::Kind() const
{
    return static_cast<FaultKind>(ui_->kindBox->currentData().toInt());
}

virtualdrive::Fault FaultDialog::Fault() const
{
    const FaultKind kind = Kind();
    return {.kind = kind,
        .sector = virtualdrive::HasSector(kind) ? ui_->sectorBox->value() : 0,
        .lasting = ui_->lastingBox->isChecked()};
}

} // namespace velmora::tray
