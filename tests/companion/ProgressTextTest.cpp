// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/protocol/ProgressText.h"

#include <gtest/gtest.h>

namespace velmora::companion {

using namespace Qt::StringLiterals;

TEST(ProgressTextTest, WhatIsSaidComesBack)
{
    for (const Progress& progress : {Progress {.percent = 0, .words = u"Gravure"_s},
             Progress {.percent = 100, .words = u"Gravure, reste 0 s"_s},
             Progress {.percent = {}, .words = u"Formatage du disque…"_s},
             Progress {.percent = 7, .words = {}}}) {
        EXPECT_EQ(ProgressOf(TextOf(progress)), progress);
    }
}

TEST(ProgressTextTest, OtherTextsAreWords)
{
    EXPECT_EQ(
        ProgressOf(u"Finalisation"_s), (Progress {.percent = {}, .words = u"Finalisation"_s}));
    EXPECT_EQ(ProgressOf(u"101 trop"_s), (Progress {.percent = {}, .words = u"trop"_s}));
    EXPECT_EQ(ProgressOf({}), Progress());
}

} // namespace velmora::companion
