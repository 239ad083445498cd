// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class ConfigurationPage;
}

namespace velmora::wizard {

/// RootContainer1(3): an ISO image to burn, and the configuration.
class ConfigurationPage final : public QWidget {
public:
    explicit ConfigurationPage(QWidget* parent);
    ~ConfigurationPage() override;

    /// The controls by their names.
    Ui::ConfigurationPage& Controls() const { return *ui_; }

private:
    std::unique_ptr<Ui::ConfigurationPage> ui_;
};

} // namespace velmora::wizard
