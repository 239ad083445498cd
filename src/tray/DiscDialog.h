// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/Recorders.h"

#include <QDialog>

#include <memory>

namespace Ui {
class DiscDialog;
}

namespace velmora::tray {

/// Asks which disc to insert into a virtual recorder. It remembers the last choice.
class DiscDialog final : public QDialog {
public:
    explicit DiscDialog(QWidget* parent = nullptr);
    ~DiscDialog() override;

    /// The requested disc, once the dialog was accepted.
    virtualdrive::DiscOrder Order() const;

private:
    void Connect();
    /// Offers only valid combinations.
    void Allow();
    void ChooseImage();
    const virtualdrive::MediumFacts* Medium() const;
    virtualdrive::DiscPreset Preset() const;

    std::unique_ptr<Ui::DiscDialog> ui_;
};

} // namespace velmora::tray
