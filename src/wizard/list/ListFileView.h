// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/DataObject.h"
#include "compilation/RowView.h"
#include "text/DiscPath.h"

#include <QTimer>
#include <QTreeView>

#include <optional>
#include <vector>

namespace velmora::compilation {
class CompilationList;
class ListDrop;
} // namespace velmora::compilation

namespace velmora::desktop {
class ImageList;
}

namespace velmora::wizard {

/// ListFile: the rows of the compilation with their icons, and the drop target for files. Rows
/// can't be edited, sorted or dragged out, and no key removes one.
class ListFileView final : public QTreeView, public compilation::RowView {
public:
    explicit ListFileView(QWidget* parent = nullptr);

    /// Gives the list its rows, icons and columns. All three must outlive the view.
    void SetUp(compilation::CompilationList& list,
        const desktop::ImageList& images,
        compilation::ListDrop& drop);

    /// The selected row, counted from 1; 0 when none is.
    qsizetype SelectedItem() const;

    qsizetype RowAt(int x, int y) const override;
    void MarkDropTarget(qsizetype row) override;
    void ShowRow(qsizetype row) override;
    /// The row that is marked as the drop target; 0 when none is.
    qsizetype DropHighlight() const { return dropHighlight_; }

    void dataChanged(const QModelIndex& topLeft,
        const QModelIndex& bottomRight,
        const QList<int>& roles) override;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Dropped {
        compilation::DataObject data;
        text::DiscPath directory;
    };

    void ShareWidth();
    void DragOver(QDropEvent& event);
    void EndDrag();

    compilation::ListDrop* drop_ = nullptr;
    std::optional<compilation::DataObject> dragged_; ///< what is being dragged over the list
    std::vector<Dropped> dropped_;                   ///< what is about to be dropped
    QTimer taking_;
    qsizetype dropHighlight_ = 0;
    bool isSharing_ = false;
    bool areWidthsChosen_ = false; ///< by the user
};

} // namespace velmora::wizard
