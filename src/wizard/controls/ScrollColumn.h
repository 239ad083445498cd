// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace velmora::wizard {

/// A vertical scroll area, wide enough for its bar as well; without a bar the contents get that
/// width. It isn't in the tab order itself: whatever gets the focus is scrolled into view.
class ScrollColumn final : public QScrollArea {
public:
    explicit ScrollColumn(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// The contents may need a different width now.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int NeededWidth() const;
};

} // namespace velmora::wizard
