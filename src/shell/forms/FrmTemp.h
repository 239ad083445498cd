// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/TemporaryChoice.h"

#include <QDialog>

#include <memory>
#include <vector>

namespace Ui {
class FrmTemp;
}

namespace velmora::shell {

/// The choice of the temporary directory. It is accepted with OK or a double click on a row.
class FrmTemp final : public QDialog {
public:
    /// Shows what is on offer when it is made.
    explicit FrmTemp(TemporaryChoice choice = TemporaryChoice(), QWidget* parent = nullptr);
    ~FrmTemp() override;

    /// The directory chosen; empty unless the window was accepted.
    const text::ProgramPath& TempDirectory() const { return directory_; }

private:
    void FillList();
    void Command2_Click();

    std::unique_ptr<Ui::FrmTemp> ui_;
    TemporaryChoice choice_;
    std::vector<TemporaryRow> rows_;
    text::ProgramPath directory_;
};

} // namespace velmora::shell
