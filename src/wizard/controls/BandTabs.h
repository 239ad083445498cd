// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTabBar>

namespace velmora::wizard {

/// The tabs on the dark band; the selected one is underlined.
class BandTabs final : public QTabBar {
public:
    explicit BandTabs(QWidget* parent);

protected:
    QSize tabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace velmora::wizard
