// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace velmora::wizard {

/// Takes the height that its words need at its width; where a window is too low for that, they
/// scroll instead of lying over each other. No place of its own in the tab order.
class ScrollStrip final : public QScrollArea {
public:
    explicit ScrollStrip(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    /// A line or two.
    QSize minimumSizeHint() const override;

protected:
    /// The contents may have come to need another height.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int NeededHeight() const;
    void ShowBarOnlyForWords();
};

} // namespace velmora::wizard
