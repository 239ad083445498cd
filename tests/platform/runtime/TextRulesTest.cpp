// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/TextRules.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;

TEST(TrimTest, OnlyBlanksGo)
{
    EXPECT_EQ(runtime::Trim(u"  a b  "_s), u"a b"_s);
    EXPECT_EQ(runtime::Trim(u" \ta\u00A0 "_s), u"\ta\u00A0"_s);
    EXPECT_EQ(runtime::Trim(u" a\r\n "_s), u"a\r\n"_s);
    EXPECT_EQ(runtime::Trim(u"   "_s), QString());
    EXPECT_EQ(runtime::Trim(QString()), QString());
}

TEST(TrimTest, RTrimLeavesTheFront)
{
    EXPECT_EQ(runtime::RTrim(u"  a  "_s), u"  a"_s);
    EXPECT_EQ(runtime::RTrim(u"a\t "_s), u"a\t"_s);
}

TEST(RSetTest, AShortTextIsRightAlignedAndALongOneKeepsItsFront)
{
    EXPECT_EQ(runtime::RSet(u"123.46"_s, 8), u"  123.46"_s);
    EXPECT_EQ(runtime::RSet(u"12345.67"_s, 8), u"12345.67"_s);
    EXPECT_EQ(runtime::RSet(u"1234567.89"_s, 8), u"1234567."_s);
}

TEST(SplitTest, AllPiecesComeEmptyOnesToo)
{
    EXPECT_EQ(runtime::Split(u"a|b"_s, u'|'), (QStringList {u"a"_s, u"b"_s}));
    EXPECT_EQ(
        runtime::Split(u"|a||"_s, u'|'), (QStringList {QString(), u"a"_s, QString(), QString()}));
    EXPECT_EQ(runtime::Split(u"a"_s, u'|'), QStringList {u"a"_s});
}

TEST(SplitTest, AnEmptyTextHasNoPiece) { EXPECT_TRUE(runtime::Split(QString(), u'|').isEmpty()); }
