// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SpokenStatus.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

TEST(SpokenStatusTest, EachPhaseIsSaidOnce)
{
    SpokenStatus spoken;
    EXPECT_EQ(spoken.OnStatus(u"Gravure en cours...\r\nProgression :  0,12%"_s),
        u"Gravure en cours... Progression : 0,12%"_s);
    EXPECT_EQ(spoken.OnStatus(u"Gravure en cours...\r\nProgression :  0,54%"_s), QString());
    EXPECT_EQ(spoken.OnStatus(u"Gravure terminée."_s), u"Gravure terminée."_s);
}

TEST(SpokenStatusTest, AnEmptyStatusSaysNothingAndBeginsAnew)
{
    SpokenStatus spoken;
    EXPECT_EQ(spoken.OnStatus(u"Gravure terminée."_s), u"Gravure terminée."_s);
    EXPECT_EQ(spoken.OnStatus({}), QString());
    EXPECT_EQ(spoken.OnStatus(u"Gravure terminée."_s), u"Gravure terminée."_s);
}

TEST(SpokenStatusTest, ProgressIsSaidInStepsOfTen)
{
    SpokenStatus spoken;
    EXPECT_EQ(spoken.OnPercent(0), QString());
    EXPECT_EQ(spoken.OnPercent(9), QString());
    EXPECT_EQ(spoken.OnPercent(10), u"10\u00A0%"_s);
    EXPECT_EQ(spoken.OnPercent(19), QString());
    EXPECT_EQ(spoken.OnPercent(43), u"40\u00A0%"_s);
    EXPECT_EQ(spoken.OnPercent(100), u"100\u00A0%"_s);
    EXPECT_EQ(spoken.OnPercent(0), QString()) << "the next bar begins";
    EXPECT_EQ(spoken.OnPercent(10), u"10\u00A0%"_s);
}

} // namespace velmora::wizard
