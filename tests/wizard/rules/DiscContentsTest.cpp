// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscContents.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using Stretches = std::vector<DiscStretch>;

TEST(DiscContentsTest, ADiscOfUnknownRoomShowsNothing)
{
    EXPECT_EQ(StretchesOf({.plannedSectors = 10}), Stretches());
    EXPECT_EQ(WordsOf({.plannedSectors = 10}), u"Rien n'est encore connu du disque."_s);
}

TEST(DiscContentsTest, APlanLiesBehindWhatIsThere)
{
    const DiscContents contents {.roomSectors = 1000, .earlierSectors = 100, .plannedSectors = 400};
    EXPECT_EQ(StretchesOf(contents),
        (Stretches {{StretchKind::Planned, 0.1, 0.5}, {StretchKind::Earlier, 0, 0.1}}));
    EXPECT_EQ(WordsOf(contents),
        u"Place du disque : déjà occupé à 10\u00A0%, le projet en prend 40\u00A0%."_s);
}

TEST(DiscContentsTest, LittleIsNotCalledNothing)
{
    EXPECT_EQ(WordsOf({.roomSectors = 1000, .plannedSectors = 9}),
        u"Place du disque : le projet en prend moins de 1\u00A0%."_s);
    EXPECT_EQ(WordsOf({.roomSectors = 1000, .plannedSectors = 10}),
        u"Place du disque : le projet en prend 1\u00A0%."_s);
    EXPECT_EQ(WordsOf({.roomSectors = 1000}), u"Place du disque : le projet en prend 0\u00A0%."_s);
}

TEST(DiscContentsTest, WhatIsWrittenAndComparedGrowsFromTheInside)
{
    const DiscContents contents {
        .roomSectors = 1000, .plannedSectors = 400, .writtenSectors = 400, .comparedSectors = 200};
    EXPECT_EQ(StretchesOf(contents),
        (Stretches {{StretchKind::Planned, 0, 0.4},
            {StretchKind::Written, 0, 0.4},
            {StretchKind::Compared, 0, 0.2}}));
    EXPECT_EQ(WordsOf(contents), u"Place du disque : gravé à 40\u00A0%, vérifié à 20\u00A0%."_s);
}

TEST(DiscContentsTest, HurtPlacesAreMarkedWhereTheyLieOnTheDisc)
{
    const DiscContents contents {.roomSectors = 1000,
        .earlierSectors = 100,
        .plannedSectors = 400,
        .writtenSectors = 400,
        .hurtPlaces = {{.firstSector = 200, .lastSector = 299}}};
    EXPECT_EQ(StretchesOf(contents).back(), (DiscStretch {StretchKind::Hurt, 0.2, 0.3}));
    EXPECT_TRUE(WordsOf(contents).endsWith(u", un endroit abîmé."_s));
}

TEST(DiscContentsTest, TooMuchIsToldAsAWholeAndEndsAtTheRim)
{
    const DiscContents contents {.roomSectors = 1000, .plannedSectors = 1001};
    EXPECT_EQ(StretchesOf(contents), (Stretches {{StretchKind::TooMuch, 0, 1}}));
    EXPECT_EQ(WordsOf(contents), u"Le projet dépasse la place du disque."_s);
    EXPECT_EQ(StretchesOf({.roomSectors = 1000, .plannedSectors = 1000}).front().kind,
        StretchKind::Planned);
}

TEST(DiscContentsTest, SharesAreSharesOfTheArea)
{
    EXPECT_DOUBLE_EQ(RadiusAt(0, 3, 5), 3);
    EXPECT_DOUBLE_EQ(RadiusAt(1, 3, 5), 5);
    const double middle = RadiusAt(0.5, 3, 5);
    EXPECT_DOUBLE_EQ(middle * middle - 3 * 3, 5 * 5 - middle * middle);
}

TEST(DiscContentsTest, ADiscLooksLikeItsFamily)
{
    EXPECT_EQ(LookOf(drive::DiscFamily::Cd), DiscLook::Cd);
    EXPECT_EQ(LookOf(drive::DiscFamily::Dvd), DiscLook::Dvd);
    EXPECT_EQ(LookOf(drive::DiscFamily::BluRay), DiscLook::BluRay);
    EXPECT_EQ(LookOf(drive::DiscFamily::None), DiscLook::Dvd);
}

} // namespace velmora::wizard
