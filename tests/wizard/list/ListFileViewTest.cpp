// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/list/ListFileFixture.h"

#include "tests/support/WidgetApplication.h"

#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSet>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using namespace test::path_literals;

namespace {

class ListFileViewTest : public test::ListFileFixture {
protected:
    void FillWith(int count)
    {
        for (int i = 1; i <= count; ++i) {
            compilation.AddMadeDirectory(text::DiscPath(u"%1"_s.arg(i)));
        }
    }
    void ShowAtOnce()
    {
        view.show();
        QCoreApplication::processEvents();
    }
    int RowsOnScreen()
    {
        return view.viewport()->height() / view.visualRect(view.model()->index(0, 0)).height() + 2;
    }

    void Press(Qt::Key key)
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &press);
    }
};

/// A proxy of the list that notes the rows that the view asks about.
class AskedRows final : public QIdentityProxyModel {
public:
    QVariant data(const QModelIndex& index, int role) const override
    {
        rows.insert(index.row());
        ++questions;
        return QIdentityProxyModel::data(index, role);
    }

    mutable QSet<int> rows;
    mutable qint64 questions = 0;
};

} // namespace

TEST_F(ListFileViewTest, ItsColumnsAreTheListsAndTheLastIsHidden)
{
    QStringList captions;
    for (int column = 0; column < 6; ++column) {
        captions += view.model()->headerData(column, Qt::Horizontal).toString();
    }
    EXPECT_EQ(captions,
        (QStringList {u"Nom"_s,
            u"Taille"_s,
            u"Type"_s,
            u"Origine"_s,
            u"Chemin ISO"_s,
            u"Taille en octets"_s}));
    ShowAtOnce();
    EXPECT_EQ(view.columnWidth(0), 386);
    EXPECT_EQ(view.columnWidth(1), 96);
    EXPECT_EQ(view.columnWidth(2), 96);
    EXPECT_GT(view.columnWidth(3), 96) << "where a file comes from takes the room that is left";
    EXPECT_EQ(view.columnWidth(4), 96);
    EXPECT_TRUE(view.isColumnHidden(5));
    EXPECT_EQ(view.header()->length(), view.viewport()->width());
}

TEST_F(ListFileViewTest, ANarrowListHasAllItsColumnsInView)
{
    ShowAtOnce();
    for (const int width : {700, 640, 500}) {
        view.resize(width, 320);
        EXPECT_EQ(view.header()->length(), view.viewport()->width()) << width;
    }
    EXPECT_LT(view.columnWidth(0), 386);
}

TEST_F(ListFileViewTest, AWidthThatAPersonHasChosenStays)
{
    ShowAtOnce();
    view.setColumnWidth(0, 200);
    view.resize(1200, 320);
    EXPECT_EQ(view.columnWidth(0), 200);
}

TEST_F(ListFileViewTest, ACaptionStandsAsItsColumn)
{
    const auto side = [this](int column) {
        return view.model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
    };
    EXPECT_EQ(side(1), int(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_EQ(side(0), 0) << "the header's own";
}

TEST_F(ListFileViewTest, AnEmptyListSaysThatThingsCanBeDropped)
{
    ShowAtOnce();
    const QImage empty = view.viewport()->grab().toImage();
    FillWith(1);
    view.setModel(nullptr);
    EXPECT_NE(empty, view.viewport()->grab().toImage());
    EXPECT_EQ(
        view.accessibleDescription(), u"Des dossiers et des fichiers peuvent être déposés ici."_s);
}

TEST_F(ListFileViewTest, ARowShowsTheIconOfItsKey)
{
    QPixmap red(16, 16);
    red.fill(Qt::red);
    images.Add(u"FD"_s, QIcon(red));
    FillWith(1);
    ShowAtOnce();
    const QRect row = view.visualRect(list.index(0, 0));
    const QImage picture = view.viewport()->grab(row).toImage();
    int redPixels = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y); // tinted under the pointer
            redPixels += pixel.red() > 200 && pixel.green() < 60 ? 1 : 0;
        }
    }
    EXPECT_EQ(redPixels, 256);
}

TEST_F(ListFileViewTest, OneRowAtMostIsSelected)
{
    FillWith(3);
    EXPECT_EQ(view.SelectedItem(), 0);
    view.setCurrentIndex(list.index(1, 0));
    EXPECT_EQ(view.SelectedItem(), 2);
    view.setCurrentIndex(list.index(2, 3));
    EXPECT_EQ(view.SelectedItem(), 3);
    EXPECT_EQ(view.selectionModel()->selectedRows().size(), 1);
    list.Clear();
    EXPECT_EQ(view.SelectedItem(), 0);
}

TEST_F(ListFileViewTest, NoKeyRemovesOrEditsARow)
{
    FillWith(3);
    view.setCurrentIndex(list.index(1, 0));
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_F2, Qt::Key_Return}) {
        Press(key);
    }
    EXPECT_EQ(list.Count(), 3);
    EXPECT_TRUE(view.findChildren<QLineEdit*>().isEmpty());
}

TEST_F(ListFileViewTest, AClickOnAColumnSortsNothing)
{
    EXPECT_FALSE(view.isSortingEnabled());
    EXPECT_FALSE(view.header()->sectionsClickable());
}

TEST_F(ListFileViewTest, ARowIsFoundByAPoint)
{
    FillWith(3);
    ShowAtOnce();
    for (int row = 1; row <= 3; ++row) {
        const QPoint point = MiddleOf(row);
        EXPECT_EQ(view.RowAt(point.x(), point.y()), row);
    }
    EXPECT_EQ(view.RowAt(20, view.viewport()->height() - 2), 0);
    EXPECT_EQ(view.RowAt(-1, -1), 0);
}

TEST_F(ListFileViewTest, ShowingARowScrollsToItAndNoFurther)
{
    FillWith(1000);
    ShowAtOnce();
    view.ShowRow(1000);
    EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
    view.ShowRow(1000);
    EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
    view.ShowRow(1);
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
}

TEST_F(ListFileViewTest, ARemovedRowIsGoneAtOnceAndTheSelectionStaysOne)
{
    FillWith(3);
    ShowAtOnce();
    view.setCurrentIndex(list.index(1, 0));
    compilation.RemoveRow(2);
    EXPECT_EQ(view.SelectedItem() > 0, true);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_FALSE(view.visualRect(list.index(1, 0)).isEmpty());
}

TEST_F(ListFileViewTest, OpeningThirtyThousandRowsAsksOnlyAboutThoseOnTheScreen)
{
    FillWith(30'000);
    AskedRows asked;
    asked.setSourceModel(&list);
    view.setModel(&asked);
    ShowAtOnce();
    view.grab();
    EXPECT_GT(asked.rows.size(), 0);
    EXPECT_LE(asked.rows.size(), RowsOnScreen());
}

TEST_F(ListFileViewTest, ScrollingAsksOnlyAboutTheRowsThatComeOnTheScreen)
{
    FillWith(30'000);
    AskedRows asked;
    asked.setSourceModel(&list);
    view.setModel(&asked);
    ShowAtOnce();
    asked.rows.clear();
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2);
    view.grab();
    EXPECT_LE(asked.rows.size(), RowsOnScreen() + 1); // the first row tells the height of all
}

TEST_F(ListFileViewTest, RowsAddedAndRemovedAmongThirtyThousandAskAboutNoOthers)
{
    FillWith(30'000);
    AskedRows asked;
    asked.setSourceModel(&list);
    view.setModel(&asked);
    ShowAtOnce();
    asked.rows.clear();
    for (int i = 0; i < 100; ++i) {
        compilation.AddMadeDirectory(text::DiscPath(u"more %1"_s.arg(i)));
        compilation.RemoveRow(15'000);
    }
    QCoreApplication::processEvents();
    view.grab();
    EXPECT_EQ(list.Count(), 30'000);
    EXPECT_LE(asked.rows.size(), RowsOnScreen() + 1);
}
} // namespace velmora::wizard
