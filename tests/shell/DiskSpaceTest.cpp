// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/DiskSpace.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;

namespace {

constexpr double kGibibyte = 1024.0 * 1024 * 1024;

QString TextFor(double freeGibibytes, double totalGibibytes, const QLocale& locale = QLocale::c())
{
    QString drive = u"C:\\"_s;
    const auto query = [=](const text::ProgramPath&) {
        return shell::DiskSpace {freeGibibytes * kGibibyte, totalGibibytes * kGibibyte};
    };
    return shell::DiskSpaceText(drive, query, locale);
}

/// The path that a query for a drive asks about; the drive must have been changed to it.
QString AskedFor(QString drive)
{
    QString asked;
    shell::DiskSpaceText(drive, [&asked](const text::ProgramPath& path) {
        asked = path.Text();
        return shell::DiskSpace {};
    });
    EXPECT_EQ(drive, asked);
    return asked;
}

} // namespace

TEST(DiskSpaceTextTest, TheFreeRoomStandsInAFieldOfEight)
{
    EXPECT_EQ(TextFor(123.456, 500), u"  123.46 Go libres (500.00 Go Taille totale) "_s);
    EXPECT_EQ(TextFor(0.25, 0.5), u"    0.25 Go libres (0.50 Go Taille totale) "_s);
    EXPECT_EQ(TextFor(12345.67, 1), u"12345.67 Go libres (1.00 Go Taille totale) "_s);
}

TEST(DiskSpaceTextTest, ALongerFigureKeepsItsFirstEightCharacters)
{
    EXPECT_EQ(TextFor(1234567.89, 1), u"1234567. Go libres (1.00 Go Taille totale) "_s);
}

TEST(DiskSpaceTextTest, TheSeparatorIsTheLocales)
{
    const QLocale french(QLocale::French, QLocale::France);
    EXPECT_EQ(TextFor(123.456, 500, french), u"  123,46 Go libres (500,00 Go Taille totale) "_s);
}

TEST(DiskSpaceTextTest, AFailureShowsZeros)
{
    QString nowhere = u"\\nowhere\\at\\all"_s;
    EXPECT_EQ(shell::DiskSpaceText(nowhere, shell::QueryDiskSpace, QLocale::c()),
        u"    0.00 Go libres (0.00 Go Taille totale) "_s);
}

TEST(DiskSpaceTextTest, APathWithADriveLetterIsCutToItsRootInPlace)
{
    EXPECT_EQ(AskedFor(u"C:\\Temp\\"_s), u"C:\\"_s);
    EXPECT_EQ(AskedFor(u"C:\\"_s), u"C:\\"_s);
    EXPECT_EQ(AskedFor(u"C:"_s), u"C:"_s);
}

TEST(DiskSpaceTextTest, APathOfThisMachineIsAskedForWhole)
{
    EXPECT_EQ(AskedFor(u"\\home\\u\\tmp\\"_s), u"\\home\\u\\tmp\\"_s);
    EXPECT_EQ(AskedFor(u"\\"_s), u"\\"_s);
}

TEST(DiskSpaceQueryTest, AMountedFileSystemHasRoom)
{
    const shell::DiskSpace space = shell::QueryDiskSpace(u"\\tmp"_path);
    EXPECT_GT(space.total, 0);
    EXPECT_GE(space.total, space.freeForCaller);
}
