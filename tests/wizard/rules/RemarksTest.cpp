// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/Remarks.h"

#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "writing/RunReport.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using namespace test::path_literals;

TEST(RemarksTest, ARunThatKeptAllHasNone)
{
    EXPECT_TRUE(RemarksOf({}).empty());
    EXPECT_EQ(TextOf({}), QString());
    EXPECT_FALSE(HasLoss({}));
}

TEST(RemarksTest, LossesComeFirstAndSayHowToMendThem)
{
    const std::vector<Remark> remarks = RemarksOf({
        .leftOut = {{.path = u"\\home\\u\\a"_s, .reason = u"Accès refusé."_s}},
        .changedSources = {u"\\home\\u\\b"_path},
        .changedNames = {{.path = u"c?d"_disc, .recorded = u"c_d"_s, .fileSystem = u"Joliet"_s}},
        .linksLeadingOut = {{.path = u"e"_disc, .text = u"/etc"_s}},
    });
    ASSERT_EQ(remarks.size(), 4U);
    EXPECT_TRUE(remarks[0].isLoss);
    EXPECT_EQ(remarks[0].path, u"/home/u/a"_s);
    EXPECT_TRUE(remarks[0].words.startsWith(u"N'y est pas. Accès refusé. Pour l'y mettre, "_s));
    EXPECT_TRUE(remarks[1].isLoss);
    EXPECT_TRUE(remarks[1].words.contains(u"« /etc »"_s));
    EXPECT_FALSE(remarks[2].isLoss);
    EXPECT_EQ(remarks[3].words, u"S'appelle « c_d » en Joliet."_s);
    EXPECT_TRUE(HasLoss(remarks));
    EXPECT_TRUE(TextOf(remarks).startsWith(u"/home/u/a\n    N'y est pas."_s));
}

TEST(RemarksTest, AChangedNameAloneIsNoLoss)
{
    EXPECT_FALSE(HasLoss(RemarksOf({.changedNames = {{.path = u"a"_disc}}})));
}

TEST(RemarksTest, ANameThatIsNoTextIsShownAsFarAsItIsOne)
{
    const QString undecodable = u"caf"_s + QChar(0xDCE9);
    const std::vector<Remark> remarks
        = RemarksOf({.changedNames = {{.path = text::DiscPath(undecodable)}}});
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_EQ(remarks[0].path, u"caf\uFFFD"_s);
}

TEST(RemarksTest, HiddenEntriesComeLastAndAreNoLoss)
{
    const std::vector<Remark> remarks = RemarksOf({
        .hiddenEntries = {u"\\home\\u\\.x"_path},
        .changedNames = {{.path = u"a"_disc}},
    });
    ASSERT_EQ(remarks.size(), 2U);
    EXPECT_EQ(remarks[1].path, u"/home/u/.x"_s);
    EXPECT_EQ(remarks[1].words,
        u"Caché, et donc pas dans la liste. Pour le graver aussi, ajoutez-le à la liste."_s);
    EXPECT_FALSE(HasLoss(remarks));
}

} // namespace velmora::wizard
