// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/CommandString.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

using namespace velmora;
using namespace Qt::StringLiterals;
using shell::ParseCommandString;
using shell::ReadArguments;

namespace {

struct Row {
    QString command;
    QString folder;
    QString discName;
};

void ExpectRow(const Row& row)
{
    const shell::CommandString read = ParseCommandString(row.command);
    EXPECT_EQ(read.SourceFolder.Text(), row.folder) << row.command.toStdString();
    EXPECT_EQ(read.DiscNameArgument, row.discName) << row.command.toStdString();
}

} // namespace

TEST(CommandStringTest, TheSeparatorPartsTheFolderFromTheDiscsName)
{
    ExpectRow({u"\"C:\\Data Disc\" -n Backup"_s, u"C:\\Data Disc"_s, u"Backup"_s});
    ExpectRow({u"C:\\Data -N Backup"_s, u"C:\\Data"_s, u"Backup"_s});
    ExpectRow({u"C:\\Data|Backup"_s, u"C:\\Data"_s, u"Backup"_s});
}

TEST(CommandStringTest, OtherSpellingsStayPartOfTheFolder)
{
    ExpectRow({u"C:\\Data -x Backup"_s, u"C:\\Data -x Backup"_s, QString()});
    ExpectRow({u"C:\\Data-n Backup"_s, u"C:\\Data-n Backup"_s, QString()});
    ExpectRow({u"C:\\Data -nBackup"_s, u"C:\\Data -nBackup"_s, QString()});
    ExpectRow({u"C:\\Data -n"_s, u"C:\\Data -n"_s, QString()});
}

TEST(CommandStringTest, DoubleQuotesAreDroppedWhereverTheyStand)
{
    ExpectRow({u"C:\\\"Da\"ta -n \"My Disc\""_s, u"C:\\Data"_s, u"My Disc"_s});
    ExpectRow({u"\"C:\\Data\" \"-n\" Backup"_s, u"C:\\Data"_s, u"Backup"_s});
}

TEST(CommandStringTest, WhatFollowsAFurtherSeparatorIsIgnored)
{
    ExpectRow({u"C:\\Data -n Backup -n More|Yet"_s, u"C:\\Data"_s, u"Backup"_s});
    ExpectRow({u"C:\\Data -n "_s, u"C:\\Data"_s, QString()});
    ExpectRow({u" -n Backup"_s, QString(), u"Backup"_s});
}

TEST(CommandStringTest, NothingGivenIsNothingRead)
{
    ExpectRow({QString(), QString(), QString()});
    EXPECT_EQ(ReadArguments({}).SourceFolder.Text(), QString());
}

TEST(ArgumentsTest, TheyAreJoinedByOneBlankEach)
{
    const std::array arguments {"/home/u/Data Disc", "-n", "Backup", "2024"};
    const shell::CommandString read = ReadArguments(arguments);
    EXPECT_EQ(read.SourceFolder.Text(), u"\\home\\u\\Data Disc"_s);
    EXPECT_EQ(read.DiscNameArgument, u"Backup 2024"_s);
}

TEST(ArgumentsTest, TheDesktopsNameOfABlankDiscIsNoFolder)
{
    EXPECT_EQ(ReadArguments(std::array {"burn:///"}).SourceFolder.Text(), QString());
    EXPECT_EQ(ReadArguments(std::array {"burn:/home"}).SourceFolder.Text(), u"burn:\\home"_s);
}

TEST(ArgumentsTest, AnEmptyFolderStillHasItsDiscName)
{
    const std::array arguments {"", "-n", "Backup"};
    const shell::CommandString read = ReadArguments(arguments);
    EXPECT_EQ(read.SourceFolder.Text(), QString());
    EXPECT_EQ(read.DiscNameArgument, u"Backup"_s);
}

TEST(ArgumentsTest, TheSameWordTwiceIsKeptTwice)
{
    const char* word = "a";
    const std::vector<const char*> arguments {word, word, word};
    EXPECT_EQ(ReadArguments(arguments).SourceFolder.Text(), u"a a a"_s);
}

TEST(ArgumentsTest, AFolderIsAPathAndADiscNameIsNot)
{
    const std::array arguments {"/home/a\\b", "-n", "AC/DC"};
    const shell::CommandString read = ReadArguments(arguments);
    EXPECT_EQ(read.SourceFolder.Text(), u"\\home\\a/b"_s);
    EXPECT_EQ(read.DiscNameArgument, u"AC/DC"_s);
}

TEST(ArgumentsTest, BytesThatAreNotUtf8ComeThrough)
{
    const std::array arguments {"/data/caf\xE9"};
    EXPECT_EQ(ReadArguments(arguments).SourceFolder.Text(), u"\\data\\caf"_s + QChar(0xDCE9));
}

TEST(ArgumentsTest, BlanksAtTheEndOfTheFolderAndOfTheDiscsNameStay)
{
    const std::array arguments {"/data/trail ", "-n", "AC/DC "};
    const shell::CommandString read = ReadArguments(arguments);
    EXPECT_EQ(text::ToNativePath(read.SourceFolder).Bytes(), "/data/trail ");
    EXPECT_EQ(read.DiscNameArgument, u"AC/DC "_s);
}

class FolderArgumentTest : public testing::Test {
protected:
    test::TemporaryFolder parent;
};

class NamedFolderTest : public FolderArgumentTest,
                        public testing::WithParamInterface<const char*> { };

TEST_P(NamedFolderTest, AnArgumentOfItsOwnIsThatFolder)
{
    const std::string folder = parent.MakeFolder(GetParam()).native();
    const std::array alone {folder.c_str()};
    EXPECT_EQ(text::ToNativePath(ReadArguments(alone).SourceFolder).Bytes(), folder);
    EXPECT_EQ(ReadArguments(alone).DiscNameArgument, QString());

    const std::array named {folder.c_str(), "-N", "My", "Disc", "-n", "More"};
    EXPECT_EQ(text::ToNativePath(ReadArguments(named).SourceFolder).Bytes(), folder);
    EXPECT_EQ(ReadArguments(named).DiscNameArgument, u"My Disc"_s);
}

INSTANTIATE_TEST_SUITE_P(AwkwardNames,
    NamedFolderTest,
    testing::Values("a|b", "a \"quoted\" one", "a -n b", "-n ", " ", "trail ", "plain"));

TEST_F(FolderArgumentTest, AFolderThatGoesOnInTheNextArgumentIsJoined)
{
    const std::string folder = parent.MakeFolder("Data").native();
    const std::array arguments {folder.c_str(), "Disc", "-n", "Name"};
    EXPECT_EQ(text::ToNativePath(ReadArguments(arguments).SourceFolder).Bytes(), folder + " Disc");
    EXPECT_EQ(ReadArguments(arguments).DiscNameArgument, u"Name"_s);
}

TEST_F(FolderArgumentTest, WhatIsNoFolderIsReadAsACommandString)
{
    const std::string text = parent.MakeFile("Data", 1).native() + "|Name";
    const std::array arguments {text.c_str()};
    EXPECT_EQ(ReadArguments(arguments).DiscNameArgument, u"Name"_s);
}
