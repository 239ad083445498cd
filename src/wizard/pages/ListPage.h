// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class ListPage;
}

namespace velmora::wizard {

/// BurnDataContainer1(1): what goes on the disc.
class ListPage final : public QWidget {
public:
    explicit ListPage(QWidget* parent);
    ~ListPage() override;

    /// The controls by their names.
    Ui::ListPage& Controls() const { return *ui_; }

private:
    std::unique_ptr<Ui::ListPage> ui_;
};

} // namespace velmora::wizard
