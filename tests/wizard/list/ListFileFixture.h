// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/ListDrop.h"
#include "desktop/ImageList.h"
#include "tests/compilation/CompilationFixture.h"
#include "wizard/list/ListFileView.h"

namespace velmora::test {

/// The list control over a compilation whose doors all lead into the test.
class ListFileFixture : public CompilationFixture<FakeFiles> {
protected:
    ListFileFixture()
    {
        view.SetUp(list, images, drop);
        view.resize(840, 320);
    }

    /// A point in the middle of a row.
    QPoint MiddleOf(int row) { return view.visualRect(list.index(row - 1, 0)).center(); }
    QPoint BesideAnyRow() const { return {20, view.viewport()->height() - 2}; }

    desktop::ImageList images;
    compilation::ListDrop drop {compilation, list, files, messages};
    wizard::ListFileView view;
};

} // namespace velmora::test
