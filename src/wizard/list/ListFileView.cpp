// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/list/ListFileView.h"

#include "compilation/CompilationList.h"
#include "compilation/ListDrop.h"
#include "desktop/ImageList.h"

#include <QDragEnterEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using compilation::CompilationList;
using compilation::SubItem;

namespace {

// The window's units are twips.
constexpr int kTwipsPerPixel = 15;
constexpr int kNameWidth = 5800 / kTwipsPerPixel;
constexpr int kDefaultWidth = 1440 / kTwipsPerPixel;
constexpr int kLeastNameWidth = 160;
constexpr int kLeastWidth = 64;
constexpr int kIconSize = 16;
constexpr int kRowMargin = 3;       // above and below the text
constexpr int kHighlightAlpha = 64; // the row's text stays readable

QString DropHint() { return u"Des dossiers et des fichiers peuvent être déposés ici."_s; }

/// Draws a row: its icon by its key, and its mark as a drop target.
class RowDelegate final : public QStyledItemDelegate {
public:
    RowDelegate(const desktop::ImageList& images, ListFileView& view)
        : QStyledItemDelegate(&view)
        , images_(images)
        , view_(view)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index).grownBy({0, kRowMargin, 0, kRowMargin});
    }

    /// Shows the whole text of a cell that is too narrow for it.
    bool helpEvent(QHelpEvent* event,
        QAbstractItemView* view,
        const QStyleOptionViewItem& option,
        const QModelIndex& index) override
    {
        const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
        QToolTip::showText(event->globalPos(), isCut ? index.data().toString() : QString(), view);
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.column() == 0) {
            option->features |= QStyleOptionViewItem::HasDecoration;
            option->icon = images_.Picture(index.data(CompilationList::kImageKeyRole).toString());
        }
        if (index.column() == static_cast<int>(SubItem::Taille)) {
            option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
        }
        if (index.row() + 1 == view_.DropHighlight()) {
            QColor mark = option->palette.color(QPalette::Highlight);
            mark.setAlpha(kHighlightAlpha);
            option->backgroundBrush = mark;
        }
    }

private:
    const desktop::ImageList& images_;
    ListFileView& view_;
};

} // namespace

ListFileView::ListFileView(QWidget* parent)
    : QTreeView(parent)
{
    setAccessibleName(u"Contenu du disque"_s);
    setAccessibleDescription(DropHint());
    setIconSize({kIconSize, kIconSize});
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true); // tens of thousands of rows needn't be measured
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTextElideMode(Qt::ElideMiddle);
    setDragDropMode(DropOnly);
    setDropIndicatorShown(false);
    taking_.setSingleShot(true);
    connect(&taking_, &QTimer::timeout, this, [this] {
        for (const Dropped& dropped : std::exchange(dropped_, {})) {
            drop_->OLEDragDrop(dropped.data, dropped.directory, *this);
        }
    });
}

void ListFileView::SetUp(
    CompilationList& list, const desktop::ImageList& images, compilation::ListDrop& drop)
{
    drop_ = &drop;
    setModel(&list);
    setItemDelegate(new RowDelegate(images, *this));
    header()->setSectionsMovable(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(kLeastWidth / 2);
    setColumnHidden(static_cast<int>(SubItem::TailleEnOctets), true);
    ShareWidth();
    connect(header(), &QHeaderView::sectionResized, this, [this] {
        areWidthsChosen_ = areWidthsChosen_ || !isSharing_;
    });
}

/// The columns have their usual widths if there is room for them, and the column of origins gets
/// the rest; else the name gives way first. Widths that the user has chosen stay.
void ListFileView::ShareWidth()
{
    if (areWidthsChosen_ || model() == nullptr) {
        return;
    }
    isSharing_ = true;
    constexpr int kOthers = 4; // columns besides the name
    const int room = viewport()->width();
    const int name = std::clamp(room - kOthers * kDefaultWidth, kLeastNameWidth, kNameWidth);
    const int each = std::clamp((room - name) / kOthers, kLeastWidth, kDefaultWidth);
    setColumnWidth(0, name);
    for (const SubItem column : {SubItem::Taille, SubItem::Type, SubItem::CheminIso}) {
        setColumnWidth(static_cast<int>(column), each);
    }
    setColumnWidth(
        static_cast<int>(SubItem::Origine), std::max(each, room - name - (kOthers - 1) * each));
    isSharing_ = false;
}

void ListFileView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    ShareWidth();
}

void ListFileView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (model() != nullptr && model()->rowCount() == 0) {
        QPainter painter(viewport());
        painter.setPen(palette().placeholderText().color());
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, DropHint());
    }
}

qsizetype ListFileView::SelectedItem() const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? 0 : selected.first().row() + 1;
}

qsizetype ListFileView::RowAt(int x, int y) const { return indexAt({x, y}).row() + 1; }

void ListFileView::MarkDropTarget(qsizetype row)
{
    if (std::exchange(dropHighlight_, row) != row) {
        viewport()->update();
    }
}

void ListFileView::ShowRow(qsizetype row)
{
    scrollTo(model()->index(static_cast<int>(row) - 1, 0));
}

/// All rows have the same height and none is ever edited: a changed text is only repainted. The
/// base class would search all rows for it.
void ListFileView::dataChanged(const QModelIndex&, const QModelIndex&, const QList<int>&)
{
    viewport()->update();
}

// The base class scrolls while a drag stays at an edge; the rules decide what a drag does.

void ListFileView::dragEnterEvent(QDragEnterEvent* event)
{
    QTreeView::dragEnterEvent(event);
    dragged_.emplace(*event->mimeData());
    DragOver(*event);
}

void ListFileView::dragMoveEvent(QDragMoveEvent* event)
{
    QTreeView::dragMoveEvent(event);
    DragOver(*event);
}

void ListFileView::dragLeaveEvent(QDragLeaveEvent* event)
{
    QTreeView::dragLeaveEvent(event);
    if (const auto left = std::exchange(dragged_, std::nullopt)) {
        qint32 effect = 0;
        drop_->OLEDragOver(*left, effect, -1, -1, *this);
    }
}

void ListFileView::dropEvent(QDropEvent* event)
{
    EndDrag();
    if (!dragged_) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // The file manager waits for the drop's end, so folders are measured and questions asked
    // afterwards.
    dropped_.push_back({*std::exchange(dragged_, std::nullopt), drop_->DropDirectory()});
    taking_.start(0);
}

/// Ends the base class's part of a drag. Its own drop handling would make the model read the rows
/// that another Qt program's list put into the drag, which mean nothing here.
void ListFileView::EndDrag()
{
    QDragLeaveEvent end;
    QTreeView::dragLeaveEvent(&end);
}

void ListFileView::DragOver(QDropEvent& event)
{
    if (!dragged_) {
        return;
    }
    const QPoint point = event.position().toPoint();
    // Qt's bits for copying and moving equal those of the effect.
    const Qt::DropActions offered = event.possibleActions() & (Qt::CopyAction | Qt::MoveAction);
    auto effect = static_cast<qint32>(offered.toInt());
    drop_->OLEDragOver(*dragged_, effect, point.x(), point.y(), *this);
    event.setDropAction(effect != 0 ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(effect != 0);
}

} // namespace velmora::wizard
