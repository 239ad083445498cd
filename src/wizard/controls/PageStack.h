// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStackedWidget>

#include <vector>

namespace velmora::wizard {

/// Pages in one place. Several may be on screen, then the last one shown covers the others; with
/// none on screen the place is blank.
class PageStack final : public QStackedWidget {
public:
    explicit PageStack(QWidget* parent);

    /// Adds a page, hidden.
    void Add(QWidget& page);
    /// Shows or hides a page; one that is already on screen keeps its position.
    void Place(QWidget& page, bool isOnScreen);
    /// Whether a page is on screen, even under another one.
    bool IsPlaced(const QWidget& page) const;

private:
    QWidget* blank_;
    std::vector<QWidget*> placed_;
};

} // namespace velmora::wizard
