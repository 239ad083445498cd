// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::compilation {

/// The view of the list's rows (ListFile) while a drag moves over it. Rows count from 1.
class RowView {
public:
    RowView() = default;
    RowView(const RowView&) = delete;
    RowView& operator=(const RowView&) = delete;
    virtual ~RowView() = default;

    /// The row at a point of the view, in its pixels; 0 for none (HitTest).
    virtual qsizetype RowAt(int x, int y) const = 0;

    /// Marks the row that a drop would go to (DropHighlight), and no other; 0 marks none.
    virtual void MarkDropTarget(qsizetype row) = 0;

    /// Scrolls as little as it takes to show the row (EnsureVisible).
    virtual void ShowRow(qsizetype row) = 0;
};

} // namespace velmora::compilation
