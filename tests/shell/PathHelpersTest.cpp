// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/PathHelpers.h"
#include "tests/support/QtPrinters.h"
#include "text/PathText.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;

namespace {

QString WithBackslash(QString path)
{
    QString result = shell::AddBackslash(path);
    EXPECT_EQ(result, path) << "the path itself must have changed too";
    return result;
}

} // namespace

TEST(AddBackslashTest, ThePathEndsInOneBackslash)
{
    EXPECT_EQ(WithBackslash(u"C:\\Data"_s), u"C:\\Data\\"_s);
    EXPECT_EQ(WithBackslash(u"C:\\Data\\"_s), u"C:\\Data\\"_s);
    EXPECT_EQ(WithBackslash(QString()), u"\\"_s);
}

TEST(AddBackslashTest, BlanksAtTheEndGo)
{
    EXPECT_EQ(WithBackslash(u"C:\\Data  "_s), u"C:\\Data\\"_s);
    EXPECT_EQ(WithBackslash(u" C:\\Data\\ "_s), u" C:\\Data\\"_s);
    EXPECT_EQ(WithBackslash(u"C:\\Data\t"_s), u"C:\\Data\t\\"_s);
}

TEST(LastFolderNameTest, TheClosingBackslashStays)
{
    EXPECT_EQ(shell::LastFolderName(u"C:\\Data\\Photos\\"_s), u"Photos\\"_s);
    EXPECT_EQ(shell::LastFolderName(u"C:\\Data\\a.txt"_s), u"a.txt"_s);
    EXPECT_EQ(shell::LastFolderName(u"C:\\"_s), u"C:\\"_s);
    EXPECT_EQ(shell::LastFolderName(u"\\"_s), u"\\"_s);
}

TEST(LastFolderNameTest, APathWithoutBackslashComesBackAsItIs)
{
    EXPECT_EQ(shell::LastFolderName(QString()), QString());
    EXPECT_EQ(shell::LastFolderName(u"a.txt"_s), u"a.txt"_s);
    EXPECT_EQ(shell::LastFolderName(u"C:"_s), u"C:"_s);
}

TEST(DefaultDiscNameTest, ItIsTheFoldersNameWithoutBackslashes)
{
    EXPECT_EQ(shell::DefaultDiscNameOf(u"C:\\Data\\"_s), u"Data"_s);
    EXPECT_EQ(shell::DefaultDiscNameOf(u"C:\\Data"_s), u"Data"_s);
    EXPECT_EQ(shell::DefaultDiscNameOf(u"D:\\"_s), u"D:"_s);
    EXPECT_EQ(shell::DefaultDiscNameOf(u"\\"_s), QString());
}

TEST(DefaultDiscNameTest, ItHoldsOnlyWhatADiscsNameMay)
{
    EXPECT_EQ(shell::DefaultDiscNameOf(text::ToProgramPath("/a/two\nlines\t\x7F\xC2\x85")),
        u"two_lines___"_s);
    EXPECT_EQ(shell::DefaultDiscNameOf(text::ToProgramPath("/a/trail ")), u"trail "_s);
    EXPECT_EQ(shell::DefaultDiscNameOf(text::ToProgramPath("/a/caf\xE9")), u"caf\uFFFD"_s);
}

TEST(FixpTest, ModeOneClosesThePathAndAnyOtherOpensIt)
{
    EXPECT_EQ(shell::Fixp(u"C:\\Data"_s, 1), u"C:\\Data\\"_s);
    EXPECT_EQ(shell::Fixp(u"C:\\"_s, 1), u"C:\\"_s);
    EXPECT_EQ(shell::Fixp(u"C:\\Data\\"_s, 0), u"C:\\Data"_s);
    EXPECT_EQ(shell::Fixp(u"C:\\Data"_s, 2), u"C:\\Data"_s);
    EXPECT_EQ(shell::Fixp(u"C:\\Data\\\\"_s, 0), u"C:\\Data\\"_s);
}

TEST(FileNameOutOfPathTest, PartZeroIsTheDirectoryAndPartOneTheName)
{
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"C:\\x\\a.txt"_s, 0), u"C:\\x\\"_s);
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"C:\\x\\a.txt"_s, 1), u"a.txt"_s);
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"C:\\x\\"_s, 0), u"C:\\x\\"_s);
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"C:\\x\\"_s, 1), QString());
}

TEST(FileNameOutOfPathTest, WithoutABackslashBothPartsAreEmpty)
{
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"a.txt"_s, 0), QString());
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"a.txt"_s, 1), QString());
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"   "_s, 1), QString());
    EXPECT_EQ(shell::getFileNameOutofFilePath(QString(), 0), QString());
}

TEST(FileNameOutOfPathTest, AnyOtherPartIsEmpty)
{
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"C:\\x\\a.txt"_s, 2), QString());
    EXPECT_EQ(shell::getFileNameOutofFilePath(u"C:\\x\\a.txt"_s, -1), QString());
}

TEST(NoTrailingBackslashTest, OneBackslashAtTheEndGoes)
{
    EXPECT_EQ(shell::NoTrailingBackslash(u"A\\B\\"_s), u"A\\B"_s);
    EXPECT_EQ(shell::NoTrailingBackslash(u"A\\B"_s), u"A\\B"_s);
    EXPECT_EQ(shell::NoTrailingBackslash(QString()), QString());
}

TEST(ParentPathTest, ItStandsLeftOfTheLastBackslash)
{
    EXPECT_EQ(shell::ParentPath(u"A\\B\\c.txt"_s), u"A\\B"_s);
    EXPECT_EQ(shell::ParentPath(u"A\\"_s), u"A"_s);
    EXPECT_EQ(shell::ParentPath(u"c.txt"_s), QString());
    EXPECT_EQ(shell::ParentPath(QString()), QString());
}
