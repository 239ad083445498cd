// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/LinkLines.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::link {

using namespace Qt::StringLiterals;

TEST(LinkLinesTest, ATextIsALine)
{
    EXPECT_EQ(LineOf(u"Undo"_s), "Undo\n");
    EXPECT_EQ(LineOf(u""_s), "\n");
    EXPECT_EQ(LineOf(u"Arrêt"_s), "Arr\xC3\xAAt\n");
}

TEST(LinkLinesTest, ATextThatIsNoLineIsRefused)
{
    EXPECT_EQ(test::ErrorNumberOf([] { LineOf(u"a\nb"_s); }), 5);
    EXPECT_EQ(test::ErrorNumberOf([] { LineOf(QString(kLongestLine + 1, u'a')); }), 5);
    EXPECT_EQ(LineOf(QString(kLongestLine, u'a')).size(), kLongestLine + 1);
}

TEST(LinkLinesTest, TextsComeInOrder)
{
    LineReader lines;
    EXPECT_EQ(lines.Take("\nUndo\nQuit\n"), QStringList({u""_s, u"Undo"_s, u"Quit"_s}));
    EXPECT_FALSE(lines.IsBroken());
}

TEST(LinkLinesTest, ATextWaitsForItsEnd)
{
    LineReader lines;
    EXPECT_EQ(lines.Take("Un"), QStringList());
    EXPECT_EQ(lines.Take("do\nArr\xC3"), QStringList {u"Undo"_s});
    EXPECT_EQ(lines.Take("\xAAt"), QStringList());
    EXPECT_EQ(lines.Take("\n"), QStringList {u"Arrêt"_s});
}

TEST(LinkLinesTest, ABrokenLineEndsTheReading)
{
    LineReader lines;
    EXPECT_EQ(lines.Take("Undo\n\xC3\nQuit\n"), QStringList {u"Undo"_s});
    EXPECT_TRUE(lines.IsBroken());
    EXPECT_EQ(lines.Take("Quit\n"), QStringList());
}

TEST(LinkLinesTest, ALineThatNeverEndsIsBroken)
{
    LineReader lines;
    EXPECT_EQ(lines.Take(QByteArray(kLongestLine, 'a')), QStringList());
    EXPECT_FALSE(lines.IsBroken());
    EXPECT_EQ(lines.Take("a"), QStringList());
    EXPECT_TRUE(lines.IsBroken());
}

TEST(LinkLinesTest, TheLongestLineIsTakenAndOneMoreByteIsNot)
{
    LineReader lines;
    EXPECT_EQ(lines.Take(QByteArray(kLongestLine, 'a') + '\n').size(), 1);
    EXPECT_EQ(lines.Take(QByteArray(kLongestLine + 1, 'a') + '\n').size(), 0);
    EXPECT_TRUE(lines.IsBroken());
}

} // namespace velmora::link
