// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/PlaceBeside.h"

#include "companion/protocol/CompanionArguments.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::companion {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSmall {400, 240};
constexpr QRect kScreen {0, 0, 1920, 1080};

/// Where it is placed beside a window.
QRect Beside(const QRect& window, const QRect& screen = kScreen)
{
    return {PlaceBeside(window, kSmall, screen), kSmall};
}

} // namespace

TEST(PlaceBesideTest, WithRoomOnAnySideItCoversNothing)
{
    for (const QRect& window : {QRect(500, 200, 900, 620),
             QRect(0, 0, 900, 620),
             QRect(1020, 460, 900, 620),
             QRect(0, 0, 1920, 800),
             QRect(0, 280, 1920, 800)}) {
        EXPECT_FALSE(Beside(window).intersects(window));
        EXPECT_TRUE(kScreen.contains(Beside(window)));
    }
}

TEST(PlaceBesideTest, ItStandsLevelWithTheButtonsOfTheWindow)
{
    const QRect window(500, 200, 900, 620);
    EXPECT_EQ(Beside(window).bottom(), window.bottom());
    const QRect low(500, 500, 900, 620); // partly below the screen
    EXPECT_TRUE(kScreen.contains(Beside(low)));
}

TEST(PlaceBesideTest, WithoutRoomItTakesTheCornerAwayFromTheProgress)
{
    const QRect screen(0, 24, 640, 336);
    const QRect place = Beside(screen, screen);
    EXPECT_TRUE(screen.contains(place));
    EXPECT_LT(place.left(), 16);
    EXPECT_GT(place.bottom(), screen.bottom() - 16);
}

TEST(PlaceBesideTest, AnotherScreenHasItsOwnRoom)
{
    const QRect second(1920, 0, 1280, 1024);
    EXPECT_TRUE(second.contains(Beside(QRect(2000, 100, 700, 600), second)));
}

TEST(WindowPlaceTest, APlaceComesBackFromItsText)
{
    for (const QRect& window : {QRect(40, 20, 900, 620), QRect(-1280, -5, 640, 360), QRect()}) {
        EXPECT_EQ(WindowPlaceOf(TextOf(window)), window);
    }
    for (const QString& text : {u""_s, u"x"_s, u"1,2,3"_s, u"1,2,3x4,5"_s, u"1,2,3xa"_s}) {
        EXPECT_EQ(WindowPlaceOf(text), std::nullopt) << text.toStdString();
    }
}

TEST(CompanionArgumentsTest, WhatIsToldComesBackFromTheCommandLine)
{
    const CompanionArguments alone {.meetingFolder = text::NativePath("/run/user/1000/link")};
    EXPECT_EQ(ToCommandLine(alone), QStringList {u"/run/user/1000/link"_s});
    EXPECT_EQ(FromCommandLine(ToCommandLine(alone)), alone);
    const CompanionArguments beside {alone.meetingFolder, QRect(40, 20, 900, 620)};
    EXPECT_EQ(FromCommandLine(ToCommandLine(beside)), beside);
}

TEST(CompanionArgumentsTest, AnythingElseIsAWrongUse)
{
    for (const QStringList& words : {QStringList(),
             QStringList {u"/link"_s, u"beside"_s},
             QStringList {u"/link"_s, u"40,20,900x620"_s, u"more"_s}}) {
        EXPECT_EQ(FromCommandLine(words), std::nullopt) << words.join(u' ').toStdString();
    }
}

} // namespace velmora::companion
