// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/compilation/CompilationFixture.h"

#include "runtime/Conversions.h"

#include <QMap>
#include <QSet>

#include <numeric>
#include <random>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::SubItem;
using test::ErrorNumberOf;

namespace {

/// Compilations of many rows: a hundred thousand rows must behave as three do.
class ManyRowsTest : public test::CompilationFixture<test::FakeFiles> {
protected:
    static compilation::SourceEntry Entry(int i)
    {
        const QString name = u"file %1.txt"_s.arg(i);
        return {.discPath = text::DiscPath(name),
            .kind = compilation::EntryKind::File,
            .origin = text::ProgramPath(u"\\data\\"_s + name),
            .size = static_cast<double>(i),
            .imageKey = u"F1"_s};
    }
    void AddFiles(int count)
    {
        compilation::ListRow* row = nullptr;
        for (int i = 0; i < count; ++i) {
            compilation.AddOrOverwrite(Entry(i), row);
        }
    }
    /// The sum as the rows themselves tell it.
    double SumOfDigits() const
    {
        double sum = 0;
        for (qsizetype i = 1; i <= list.Count(); ++i) {
            sum += runtime::Val(list[i][SubItem::TailleEnOctets]);
        }
        return sum;
    }
    /// How many rows are found under their own keys.
    qsizetype RowsFoundByKey() const
    {
        qsizetype found = 0;
        for (qsizetype i = 1; i <= list.Count(); ++i) {
            found += &list[list[i].Key()] == &list[i] ? 1 : 0;
        }
        return found;
    }
};

} // namespace

TEST_F(ManyRowsTest, AHundredThousandRowsAreKeptInOrderAndCountedExactly)
{
    AddFiles(100'000);
    ASSERT_EQ(list.Count(), 100'000);
    EXPECT_EQ(list[1].Text(), u"file 0.txt"_s);
    EXPECT_EQ(list[100'000].Text(), u"file 99999.txt"_s);
    EXPECT_EQ(state.TotalSizeBytes, 99'999.0 * 100'000 / 2);
    EXPECT_EQ(SumOfDigits(), state.TotalSizeBytes);
    EXPECT_EQ(RowsFoundByKey(), 100'000);
}

TEST_F(ManyRowsTest, EveryRowIsOneChangeOfTheModelAndNothingStartsItAnew)
{
    int inserted = 0;
    int removed = 0;
    int resets = 0;
    using Model = QAbstractItemModel;
    Model::connect(&list, &Model::rowsInserted, &list, [&inserted] { ++inserted; });
    Model::connect(&list, &Model::rowsRemoved, &list, [&removed] { ++removed; });
    Model::connect(&list, &Model::modelReset, &list, [&resets] { ++resets; });
    AddFiles(30'000);
    for (int i = 0; i < 100; ++i) {
        compilation.RemoveRow(1 + i * 250);
    }
    EXPECT_EQ(inserted, 30'000);
    EXPECT_EQ(removed, 100);
    EXPECT_EQ(resets, 0);
}

TEST_F(ManyRowsTest, RowsTakenOutAnywhereLeaveTheOthersAsTheyWere)
{
    AddFiles(30'000);
    std::mt19937 random(1); // NOLINT: the same in every run
    QSet<QString> gone;
    for (int i = 0; i < 1'000; ++i) {
        const qsizetype row = 1 + static_cast<qsizetype>(random() % 29'000);
        gone.insert(list[row].Key());
        compilation.RemoveRow(row);
    }
    EXPECT_EQ(gone.size(), 1'000);
    EXPECT_EQ(list.Count(), 29'000);
    EXPECT_EQ(RowsFoundByKey(), 29'000);
    EXPECT_EQ(SumOfDigits(), state.TotalSizeBytes);
    for (const QString& key : gone) {
        EXPECT_FALSE(list.Contains(key));
        EXPECT_FALSE(lstViewVBVal(list, key));
    }
}

TEST_F(ManyRowsTest, WithEveryRowGoneNothingIsLeftOfThem)
{
    AddFiles(30'000);
    while (list.Count() > 0) {
        compilation.RemoveRow(list.Count());
    }
    EXPECT_EQ(state.TotalSizeBytes, 0);
    AddFiles(1);
    EXPECT_EQ(list.Count(), 1);
}

TEST_F(ManyRowsTest, ADuplicateIsFoundAmongThirtyThousandRows)
{
    AddFiles(30'000);
    files.files[u"\\other\\file 12345.txt"_s] = 7;
    EXPECT_EQ(ErrorNumberOf([&] { compilation.PutFile(u"\\other\\file 12345.txt"_path); }), 35602);
    EXPECT_TRUE(lstViewVBVal(list, u"FILE 29999.TXT"_s));
    EXPECT_FALSE(lstViewVBVal(list, u"FILE 30000.TXT"_s));
    EXPECT_EQ(list.Count(), 30'000);
}

TEST_F(ManyRowsTest, AnyMixOfAddingAndRemovingKeepsSumAndKeysTrue)
{
    std::mt19937 random(2); // NOLINT: the same in every run
    QMap<QString, double> expected;
    for (int step = 0; step < 20'000; ++step) {
        if (random() % 3 == 0 && list.Count() > 0) {
            const auto row = 1 + static_cast<qsizetype>(random() % expected.size());
            expected.remove(list[row].Key());
            compilation.RemoveRow(row);
            continue;
        }
        const compilation::SourceEntry entry = Entry(static_cast<int>(random() % 5'000));
        compilation::ListRow* row = nullptr;
        compilation.AddOrOverwrite(entry, row);
        EXPECT_EQ(row == nullptr, expected.contains(entry.discPath.Text()));
        expected[entry.discPath.Text()] = entry.size;
    }
    EXPECT_EQ(list.Count(), expected.size());
    EXPECT_EQ(state.TotalSizeBytes, std::accumulate(expected.begin(), expected.end(), 0.0));
    EXPECT_EQ(SumOfDigits(), state.TotalSizeBytes);
    EXPECT_EQ(RowsFoundByKey(), list.Count());
}
