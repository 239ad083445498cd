// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/Description.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FaultDialog;
}

namespace velmora::tray {

/// Asks which fault to plan for a virtual recorder. It remembers the last choice.
class FaultDialog final : public QDialog {
public:
    explicit FaultDialog(QWidget* parent = nullptr);
    ~FaultDialog() override;

    /// The requested fault, once the dialog was accepted.
    virtualdrive::Fault Fault() const;

private:
    virtualdrive::FaultKind Kind() const;

    std::unique_ptr<Ui::FaultDialog> ui_;
};

} // namespace velmora::tray
