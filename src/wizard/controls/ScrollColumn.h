// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace velmora::wizard {

/// What scrolls up and down where there is no room for all of it, and is wide enough for its bar
/// as well; while there is none the contents have that width.
/// No place of its own in the tab order: whatever gets the focus is scrolled into view.
class ScrollColumn final : public QScrollArea {
public:
    explicit ScrollColumn(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// The contents may have come to need another width.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int NeededWidth() const;
};

} // namespace velmora::wizard
