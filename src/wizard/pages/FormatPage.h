// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class FormatPage;
}

namespace velmora::wizard {

class FormatTile;

/// RootContainer1(0): the recorder and the disc format.
class FormatPage final : public QWidget {
public:
    explicit FormatPage(QWidget* parent);
    ~FormatPage() override;

    /// The controls by their names.
    Ui::FormatPage& Controls() const { return *ui_; }

    /// @param index  0 Blu-ray, 1 DVD, 2 CD, 3 the disc in the drive
    FormatTile& CorvaneButton2(qint16 index) const;

private:
    std::unique_ptr<Ui::FormatPage> ui_;
};

} // namespace velmora::wizard
