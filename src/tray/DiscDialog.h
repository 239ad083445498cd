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

/// Asks which disc is to be put into a virtual recorder. It keeps what was chosen last.
class DiscDialog final : public QDialog {
public:
    explicit DiscDialog(QWidget* parent = nullptr);
    ~DiscDialog() override;

    /// The disc that was asked for, once the dialog was accepted.
    virtualdrive::DiscOrder Order() const;

private:
    void Connect();
    /// Lets only those things be chosen that go together.
    void Allow();
    void ChooseImage();
    const virtualdrive::MediumFacts* Medium() const;
    virtualdrive::DiscPreset Preset() const;

    std::unique_ptr<Ui::DiscDialog> ui_;
};

} // namespace velmora::tray
