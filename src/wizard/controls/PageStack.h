// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStackedWidget>

#include <vector>

namespace velmora::wizard {

/// Pages at one place. Several may be on screen, then the one that came last lies over the others;
/// with none on screen the place is blank.
class PageStack final : public QStackedWidget {
public:
    explicit PageStack(QWidget* parent);

    /// Takes a page in, away from the screen.
    void Add(QWidget& page);
    /// Brings a page on screen or takes it away; one that is there already stays where it lies.
    void Place(QWidget& page, bool isOnScreen);
    /// Whether a page is on screen, be it under another one.
    bool IsPlaced(const QWidget& page) const;

private:
    QWidget* blank_;
    std::vector<QWidget*> placed_;
};

} // namespace velmora::wizard
