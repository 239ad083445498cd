// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/list/ListFileFixture.h"

#include "tests/support/WidgetApplication.h"

#include <QDataStream>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QMap>
#include <QMimeData>
#include <QVariant>

#include <utility>
#include <vector>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::SubItem;

namespace {

constexpr Qt::DropActions kCopyOrMove = Qt::CopyAction | Qt::MoveAction;

/// Sends the control the events of a drag as the desktop does.
class ListFileDragTest : public test::ListFileFixture {
protected:
    ListFileDragTest()
    {
        compilation.AddMadeDirectory(u"Photos"_disc);
        compilation.AddMadeDirectory(u"Textes"_disc);
        files.files[u"\\home\\u\\a.jpg"_s] = 1000;
        compilation.PutFile(u"\\home\\u\\a.jpg"_path);
        view.show();
        Drag("file:///home/u/a.jpg\r\n");
    }

    ~ListFileDragTest() override { Leave(); } // the toolkit remembers where a drag is

    void Drag(const QByteArray& addresses) { data.setData(u"text/uri-list"_s, addresses); }

    /// @return the action that the drag is offered there; none when it isn't taken
    Qt::DropAction Enter(const QPoint& point, Qt::DropActions actions = kCopyOrMove)
    {
        QDragEnterEvent event(point, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    Qt::DropAction Move(const QPoint& point, Qt::DropActions actions = kCopyOrMove)
    {
        QDragMoveEvent event(point, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    void Leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(view.viewport(), &event);
    }
    Qt::DropAction Drop(const QPoint& point)
    {
        QDropEvent event(point, kCopyOrMove, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    void DragAndDrop(const QPoint& point)
    {
        Enter(point);
        Move(point);
        EXPECT_EQ(Drop(point), Qt::CopyAction);
        QCoreApplication::processEvents();
    }

    QMimeData data;
};

} // namespace

TEST_F(ListFileDragTest, FilesAreOfferedACopyAndNeverAMove)
{
    EXPECT_EQ(Enter(MiddleOf(1)), Qt::CopyAction);
    EXPECT_EQ(Move(MiddleOf(1)), Qt::CopyAction);
    EXPECT_EQ(Move(BesideAnyRow()), Qt::CopyAction);
    EXPECT_EQ(Move(MiddleOf(1), Qt::MoveAction), Qt::IgnoreAction);
}

TEST_F(ListFileDragTest, WhatHasNoAddressesIsNotTaken)
{
    data.clear();
    data.setText(u"/home/u/a.jpg"_s);
    EXPECT_EQ(Enter(MiddleOf(1)), Qt::IgnoreAction);
    EXPECT_EQ(Move(MiddleOf(2)), Qt::IgnoreAction);
}

TEST_F(ListFileDragTest, TheRowUnderTheDragIsMarkedUntilItLeaves)
{
    Enter(MiddleOf(2));
    EXPECT_EQ(view.DropHighlight(), 2);
    EXPECT_EQ(drop.DropDirectory(), u"Textes\\"_disc);
    Move(MiddleOf(1));
    EXPECT_EQ(view.DropHighlight(), 1);
    EXPECT_EQ(drop.DropDirectory(), u"Photos\\"_disc);
    Move(BesideAnyRow());
    EXPECT_EQ(view.DropHighlight(), 0);
    Move(MiddleOf(2));
    Leave();
    EXPECT_EQ(view.DropHighlight(), 0);
    EXPECT_EQ(drop.DropDirectory(), text::DiscPath());
}

TEST_F(ListFileDragTest, TheMarkedRowLooksDifferent)
{
    Move(BesideAnyRow());
    const QImage plain = view.viewport()->grab().toImage();
    Enter(MiddleOf(2));
    const QImage marked = view.viewport()->grab().toImage();
    const QPoint inRow = view.visualRect(list.index(1, 1)).topLeft() + QPoint(3, 3);
    const QPoint inNextRow = view.visualRect(list.index(2, 1)).topLeft() + QPoint(3, 3);
    EXPECT_NE(marked.pixel(inRow), plain.pixel(inRow));
    EXPECT_EQ(marked.pixel(inNextRow), plain.pixel(inNextRow));
}

TEST_F(ListFileDragTest, ADropGoesIntoTheDirectoryUnderIt)
{
    DragAndDrop(MiddleOf(1));
    ASSERT_EQ(list.Count(), 4);
    EXPECT_EQ(list[4].Text(), u"Photos\\a.jpg"_s);
    EXPECT_EQ(list[4][SubItem::Origine], u"\\home\\u\\a.jpg"_s);
    EXPECT_EQ(view.DropHighlight(), 0);
}

TEST_F(ListFileDragTest, ADropOnAFileOrBesideTheRowsGoesIntoTheRoot)
{
    files.files[u"\\b"_s] = 1;
    files.files[u"\\c"_s] = 1;
    Drag("file:///b");
    DragAndDrop(MiddleOf(3));
    Drag("file:///c");
    DragAndDrop(BesideAnyRow());
    ASSERT_EQ(list.Count(), 5);
    EXPECT_EQ(list[4].Text(), u"b"_s);
    EXPECT_EQ(list[5].Text(), u"c"_s);
}

TEST_F(ListFileDragTest, TheFileManagerIsNotKeptWaitingForTheDropsWork)
{
    Enter(MiddleOf(1));
    EXPECT_EQ(Drop(MiddleOf(1)), Qt::CopyAction);
    EXPECT_EQ(list.Count(), 3);
    data.clear(); // it is gone when the drop has been answered
    QCoreApplication::processEvents();
    EXPECT_EQ(list.Count(), 4);
}

TEST_F(ListFileDragTest, ADropIsKeptWhenAnotherFollowsAtOnce)
{
    for (const char* name : {"b", "c"}) {
        files.files[u'\\' + QString::fromLatin1(name)] = 1;
        Drag(QByteArray("file:///") + name);
        Enter(BesideAnyRow());
        EXPECT_EQ(Drop(BesideAnyRow()), Qt::CopyAction);
    }
    QCoreApplication::processEvents();
    ASSERT_EQ(list.Count(), 5);
    EXPECT_EQ(list[4].Text(), u"b"_s);
    EXPECT_EQ(list[5].Text(), u"c"_s);
}

TEST_F(ListFileDragTest, EachDropGoesIntoTheDirectoryThatItWasDroppedOn)
{
    const std::vector<std::pair<const char*, int>> drops {{"b", 1}, {"c", 2}};
    for (const auto& [name, row] : drops) {
        files.files[u'\\' + QString::fromLatin1(name)] = 1;
        Drag(QByteArray("file:///") + name);
        Enter(MiddleOf(row));
        EXPECT_EQ(Drop(MiddleOf(row)), Qt::CopyAction);
    }
    QCoreApplication::processEvents();
    ASSERT_EQ(list.Count(), 5);
    EXPECT_EQ(list[4].Text(), u"Photos\\b"_s);
    EXPECT_EQ(list[5].Text(), u"Textes\\c"_s);
}

TEST_F(ListFileDragTest, OnlyTheFilesOfADragAreRead)
{
    // The lists of other Qt programs add their rows to the files.
    QByteArray rows;
    QDataStream stream(&rows, QIODevice::WriteOnly);
    for (const qint32 place : {0, 0x7FFFFFF0}) {
        stream << place << place << QMap<int, QVariant> {};
    }
    data.setData(u"application/x-qabstractitemmodeldatalist"_s, rows);
    for (const char* format : {"application/x-color", "image/png", "text/html"}) {
        data.setData(QString::fromLatin1(format), QByteArray("\x00\xff\x7f", 3));
    }
    files.files[u"\\b"_s] = 1;
    data.setData(u"text/uri-list"_s, "file:///b");
    DragAndDrop(BesideAnyRow());
    ASSERT_EQ(list.Count(), 4);
    EXPECT_EQ(list[4].Text(), u"b"_s);
}

TEST_F(ListFileDragTest, ADropOutOfNowhereIsRefused)
{
    EXPECT_EQ(Drop(MiddleOf(1)), Qt::IgnoreAction);
    QCoreApplication::processEvents();
    EXPECT_EQ(list.Count(), 3);
}

TEST_F(ListFileDragTest, ADragNearTheEdgeShowsTheRowUnderIt)
{
    for (int i = 0; i < 100; ++i) {
        compilation.AddMadeDirectory(text::DiscPath(u"D%1"_s.arg(i)));
    }
    QCoreApplication::processEvents();
    const int height = view.viewport()->height();
    const QModelIndex half = view.indexAt({20, height - 1});
    Enter({20, height - 1});
    EXPECT_EQ(view.DropHighlight(), half.row() + 1);
    EXPECT_LE(view.visualRect(half).bottom(), height - 1);
}

TEST_F(ListFileDragTest, RowsCannotBeDraggedOut)
{
    EXPECT_FALSE(view.dragEnabled());
    EXPECT_FALSE(list.flags(list.index(0, 0)).testFlag(Qt::ItemIsEditable));
}

} // namespace velmora::wizard
