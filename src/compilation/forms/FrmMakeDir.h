// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/NewDirectory.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmMakeDir;
}

namespace velmora::compilation {

/// Asks for a directory to create on the disc.
class FrmMakeDir final : public QDialog {
public:
    /// Offers the directories that are in the list when it is made.
    explicit FrmMakeDir(const CompilationList& list, QWidget* parent = nullptr);
    ~FrmMakeDir() override;

    /// The directory, with a backslash at its end; empty unless the window was
    /// accepted.
    const text::DiscPath& NewDirectoryPath() const { return newDirectory_.NewDirectoryPath(); }

    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Command2_Click();

    std::unique_ptr<Ui::FrmMakeDir> ui_;
    NewDirectory newDirectory_;
};

} // namespace velmora::compilation
