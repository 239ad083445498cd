// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/CompilationList.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <array>

using namespace velmora;
using namespace Qt::StringLiterals;
using compilation::CompilationList;
using compilation::EntryKind;
using compilation::ListRow;
using compilation::SubItem;
using test::ErrorNumberOf;

namespace {

ListRow& AddNamed(CompilationList& list, const QString& name)
{
    return list.Add(name, text::DiscPath(name), u"FD"_s);
}

QString Shown(const CompilationList& list, int row, int column)
{
    return list.data(list.index(row, column), Qt::DisplayRole).toString();
}

} // namespace

TEST(CompilationListTest, RowsKeepTheirOrderAndAreCountedFromOne)
{
    CompilationList list;
    AddNamed(list, u"b"_s);
    AddNamed(list, u"a"_s);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list[1].Text(), u"b"_s);
    EXPECT_EQ(list[2].Text(), u"a"_s);
}

TEST(CompilationListTest, APlaceOutsideTheListIsError35600)
{
    CompilationList list;
    AddNamed(list, u"a"_s);
    EXPECT_EQ(ErrorNumberOf([&] { (void)list[0]; }), 35600);
    EXPECT_EQ(ErrorNumberOf([&] { (void)list[2]; }), 35600);
    EXPECT_EQ(ErrorNumberOf([&] { list.Remove(2); }), 35600);
    EXPECT_EQ(ErrorNumberOf([&] { list.Remove(0); }), 35600);
}

TEST(CompilationListTest, AKeyFindsItsRowAndAnUnknownOneIsError35601)
{
    CompilationList list;
    AddNamed(list, u"Photos\\"_s);
    EXPECT_EQ(list[u"Photos\\"_s].Text(), u"Photos\\"_s);
    EXPECT_EQ(ErrorNumberOf([&] { (void)list[u"Photos"_s]; }), 35601);
}

TEST(CompilationListTest, ASecondRowOfOneKeyIsError35602AndChangesNothing)
{
    CompilationList list;
    list.SetSubItem(AddNamed(list, u"a"_s), SubItem::Taille, u"1 Ko"_s);
    EXPECT_EQ(ErrorNumberOf([&] { AddNamed(list, u"a"_s); }), 35602);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list[1][SubItem::Taille], u"1 Ko"_s);
}

TEST(CompilationListTest, KeysDifferByCase)
{
    CompilationList list;
    AddNamed(list, u"a.txt"_s);
    AddNamed(list, u"A.TXT"_s);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_TRUE(list.Contains(u"A.TXT"_s));
    EXPECT_FALSE(list.Contains(u"A.txt"_s));
}

TEST(CompilationListTest, ANameOfDigitsIsAKeyLikeAnyOther)
{
    CompilationList list;
    AddNamed(list, u"123"_s);
    EXPECT_EQ(list[u"123"_s].Text(), u"123"_s);
}

TEST(CompilationListTest, ARemovedRowFreesItsKeyAndTheOthersStay)
{
    CompilationList list;
    AddNamed(list, u"A\\"_s);
    AddNamed(list, u"A\\b"_s);
    const ListRow& below = list[list.Count()];
    list.Remove(1);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(&list[1], &below);
    EXPECT_FALSE(list.Contains(u"A\\"_s));
    AddNamed(list, u"A\\"_s);
    EXPECT_EQ(list[2].Text(), u"A\\"_s);
}

TEST(CompilationListTest, ClearingTakesRowsAndKeys)
{
    CompilationList list;
    AddNamed(list, u"a"_s);
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_FALSE(list.Contains(u"a"_s));
}

TEST(CompilationListTest, ARowCanBeWrittenAfterOthersWereAdded)
{
    CompilationList list;
    ListRow& first = AddNamed(list, u"a"_s);
    AddNamed(list, u"b"_s);
    int changedRow = -1;
    QObject::connect(&list, &QAbstractItemModel::dataChanged, &list, [&](const QModelIndex& index) {
        changedRow = index.row();
    });
    list.SetKind(first, EntryKind::File);
    EXPECT_EQ(list[1].Kind(), EntryKind::File);
    EXPECT_EQ(list[1][SubItem::Type], u"Fichier"_s);
    EXPECT_EQ(changedRow, 0);
}

TEST(CompilationListTest, EachOfManyRowsIsFoundByItsName)
{
    constexpr int kRows = 30'000;
    CompilationList list;
    for (int i = 1; i <= kRows; ++i) {
        const QString name = u"folder\\file %1"_s.arg(i);
        ListRow& row = AddNamed(list, name);
        for (const SubItem item : {SubItem::Taille,
                 SubItem::Type,
                 SubItem::Origine,
                 SubItem::CheminIso,
                 SubItem::TailleEnOctets}) {
            list.SetSubItem(row, item, name);
        }
    }
    for (int i = 1; i <= kRows; ++i) {
        ASSERT_EQ(&list[u"folder\\file %1"_s.arg(i)], &list[i]);
    }
}

TEST(CompilationViewTest, TheColumnsHaveTheirCaptions)
{
    const CompilationList list;
    const std::array captions {
        u"Nom"_s, u"Taille"_s, u"Type"_s, u"Origine"_s, u"Chemin ISO"_s, u"Taille en octets"_s};
    ASSERT_EQ(list.columnCount(), 6);
    for (int column = 0; column < 6; ++column) {
        EXPECT_EQ(list.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
            captions.at(static_cast<std::size_t>(column)));
    }
    EXPECT_FALSE(list.headerData(6, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(list.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

TEST(CompilationViewTest, TextsReadAsAPersonWritesThem)
{
    CompilationList list;
    const QString disc = u"Photos\\caf"_s + QChar(0xDCE9);
    ListRow& row = list.Add(disc, text::DiscPath(disc), u"F3"_s);
    list.SetOrigin(row, text::ProgramPath(u"\\home\\u\\caf"_s + QChar(0xDCE9)));
    list.SetSubItem(row, SubItem::CheminIso, disc);
    list.SetSubItem(row, SubItem::Taille, u"1 Ko"_s);

    EXPECT_EQ(Shown(list, 0, 0), u"Photos\\caf\uFFFD"_s);
    EXPECT_EQ(Shown(list, 0, 1), u"1 Ko"_s);
    EXPECT_EQ(Shown(list, 0, 3), u"/home/u/caf\uFFFD"_s);
    EXPECT_EQ(Shown(list, 0, 4), u"Photos\\caf\uFFFD"_s);
    EXPECT_EQ(list.data(list.index(0, 0), CompilationList::kImageKeyRole).toString(), u"F3"_s);
}

TEST(CompilationViewTest, AViewHearsOfRowsThatComeAndGo)
{
    CompilationList list;
    QStringList heard;
    QObject::connect(
        &list, &QAbstractItemModel::rowsInserted, &list, [&](const QModelIndex&, int first) {
            heard += u"+%1"_s.arg(first);
        });
    QObject::connect(
        &list, &QAbstractItemModel::rowsRemoved, &list, [&](const QModelIndex&, int first) {
            heard += u"-%1"_s.arg(first);
        });
    QObject::connect(&list, &QAbstractItemModel::modelReset, &list, [&] { heard += u"reset"_s; });
    AddNamed(list, u"a"_s);
    AddNamed(list, u"b"_s);
    list.Remove(1);
    list.Clear();
    EXPECT_EQ(heard, (QStringList {u"+0"_s, u"+1"_s, u"-0"_s, u"reset"_s}));
}

TEST(ListViewSearchTest, ARowsTextIsFoundWhateverItsCase)
{
    CompilationList list;
    list.SetOrigin(AddNamed(list, u"Photos\\"_s), text::ProgramPath(u"\\home\\Été\\"_s));
    AddNamed(list, u"Été.txt"_s);
    EXPECT_TRUE(lstViewVBVal(list, u"PHOTOS\\"_s));
    EXPECT_TRUE(lstViewVBVal(list, u"ÉTÉ.TXT"_s));
    EXPECT_FALSE(lstViewVBVal(list, u"Photos"_s));
    EXPECT_FALSE(lstViewVBVal(list, u"\\home\\Été\\"_s));
}

TEST(ListViewSearchTest, ARowIsFoundAfterAnotherThatDiffersOnlyInCaseHasGone)
{
    CompilationList list;
    AddNamed(list, u"Photos\\"_s);
    AddNamed(list, u"PHOTOS\\"_s);
    list.Remove(1);
    EXPECT_TRUE(lstViewVBVal(list, u"photos\\"_s));
    list.Remove(1);
    EXPECT_FALSE(lstViewVBVal(list, u"photos\\"_s));
}

TEST(ListViewSearchTest, AnEmptyListHoldsNothing)
{
    const CompilationList list;
    EXPECT_FALSE(lstViewVBVal(list, QString()));
}
