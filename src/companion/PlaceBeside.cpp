// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/PlaceBeside.h"

#include <algorithm>
#include <array>

namespace velmora::companion {

namespace {

constexpr int kGap = 8; // between the two, and to the screen's edge

} // namespace

QPoint PlaceBeside(const QRect& other, const QSize& size, const QRect& room)
{
    const QRect whole = room.marginsRemoved({kGap, kGap, kGap, kGap});
    const int lowest = whole.bottom() + 1 - size.height();
    const int rightmost = whole.right() + 1 - size.width();
    // Level with the end of the other window, where its buttons are; but on the screen.
    const int top = std::max(whole.top(), std::min(other.bottom() + 1 - size.height(), lowest));
    const int left = std::max(whole.left(), std::min(other.left(), rightmost));
    const std::array<QPoint, 4> sides {QPoint(other.left() - kGap - size.width(), top),
        QPoint(other.right() + 1 + kGap, top),
        QPoint(left, other.bottom() + 1 + kGap),
        QPoint(left, other.top() - kGap - size.height())};
    const auto* const side = std::ranges::find_if(
        sides, [&](const QPoint& place) { return whole.contains(QRect(place, size)); });
    return side != sides.end() ? *side : QPoint(whole.left(), lowest);
}

} // namespace velmora::companion
