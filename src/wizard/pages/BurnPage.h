// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/OperationLog.h"

#include <QWidget>

#include <memory>

class QPushButton;

namespace Ui {
class BurnPage;
}

namespace velmora::wizard {

/// BurnDataContainer1(2): the burn, its phase and its log.
class BurnPage final : public QWidget, public shell::LogView {
public:
    explicit BurnPage(QWidget* parent);
    ~BurnPage() override;

    /// The controls by their names.
    Ui::BurnPage& Controls() const { return *ui_; }

    /// @param index  0 burns, 1 makes an ISO image, 2 stops
    QPushButton& BurnButton(qint16 index) const;

    /// The percent figure follows the bar of the whole run.
    void ShowBar(bool isVisible);
    void SetBarValue(int value);

    void LogCleared() override;
    void LogAppended(const QString& added) override;

private:
    std::unique_ptr<Ui::BurnPage> ui_;
};

} // namespace velmora::wizard
