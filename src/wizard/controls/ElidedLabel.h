// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace velmora::wizard {

/// A label that gives up the middle of a line that is too long for it, where a path says least. The
/// whole text stays its text, and shows under the mouse.
class ElidedLabel final : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList Lines() const;
};

} // namespace velmora::wizard
