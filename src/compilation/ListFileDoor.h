// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::compilation {

/// The door to the view of the list while a drag moves over it. Rows count from 1.
class ListFileDoor {
public:
    ListFileDoor() = default;
    ListFileDoor(const ListFileDoor&) = delete;
    ListFileDoor& operator=(const ListFileDoor&) = delete;
    virtual ~ListFileDoor() = default;

    /// The row at a point of the view, in its pixels; 0 for none.
    virtual qsizetype HitTest(int x, int y) const = 0;

    /// Marks the row that a drop would go to, and no other; 0 marks none.
    virtual void SetDropHighlight(qsizetype row) = 0;

    /// Scrolls as little as it takes to show the row.
    virtual void EnsureVisible(qsizetype row) = 0;
};

} // namespace velmora::compilation
