// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace velmora::wizard {

/// Takes the height that its words need at its width; where a window is too low for that, they
/// scroll instead of lying over each other: by the wheel, and by the arrow keys once the tab key
/// has come by. It has a place in the tab order only then.
class ScrollStrip final : public QScrollArea {
public:
    explicit ScrollStrip(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    /// A line or two.
    QSize minimumSizeHint() const override;

    /// Shows the first words again.
    void ShowTop();

protected:
    bool event(QEvent* event) override;
    /// The contents may have come to need another height.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int Frame() const;
    int NeededHeight() const;
    void ScrollOnlyForWords();
};

} // namespace velmora::wizard
