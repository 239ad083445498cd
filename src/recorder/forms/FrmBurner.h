// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class FrmBurner;
}

namespace velmora::recorder {

struct RecorderState;

/// Shows what is known about a recorder; it queries no drive.
class FrmBurner final : public QDialog {
public:
    /// @param Combo1ListIndex  the place of the recorder in the list. Error 9 outside it.
    FrmBurner(const RecorderState& state, qint16 Combo1ListIndex, QWidget* parent = nullptr);
    ~FrmBurner() override;

private:
    std::unique_ptr<Ui::FrmBurner> ui_;
};

} // namespace velmora::recorder
