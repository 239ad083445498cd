// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QBoxLayout;

namespace velmora::wizard {

/// A row of widgets that becomes a column if it is too narrow for them. It must have a box layout.
class TurningRow final : public QWidget {
public:
    explicit TurningRow(QWidget* parent);

    /// As narrow as the widest of them.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QBoxLayout& Row() const;
};

} // namespace velmora::wizard
