// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace velmora::wizard {

/// A label that elides the middle of a line that is too long, where a path says least. Its text
/// stays complete, and shows as a tool tip.
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
