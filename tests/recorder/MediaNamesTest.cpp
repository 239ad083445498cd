// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/MediaNames.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <array>

using namespace velmora;
using namespace Qt::StringLiterals;
using recorder::SpeedToMultiple;

namespace {

/// The text of a published number.
QString MediaTypeName(qint32 number)
{
    return recorder::MediaTypeName(static_cast<drive::IMAPI_MEDIA_PHYSICAL_TYPE>(number));
}

} // namespace

TEST(MediaTypeNameTest, EachTypeHasItsText)
{
    struct Row {
        qint32 type;
        QString text;
    };
    const std::array rows {
        Row {0, u"    Lecteur vide ou type de disque non supporté."_s},
        Row {1, u"    CD-ROM"_s},
        Row {2, u"    CD-R"_s},
        Row {3, u"    CD-RW"_s},
        Row {4, u"    DVD-ROM"_s},
        Row {5, u"    DVD-RAM"_s},
        Row {6, u"    DVD+R"_s},
        Row {7, u"    DVD+RW"_s},
        Row {8, u"    DVD+R Dual Layer"_s},
        Row {9, u"    DVD-R"_s},
        Row {10, u"    DVD-RW"_s},
        Row {11, u"    DVD-R Dual Layer"_s},
        Row {13, u"    DVD-RW Dual Layer"_s},
        Row {17, u"    Blue-Ray BD-rom"_s},
        Row {18, u"    Blue-Ray Disc R"_s},
        Row {19, u"    Blue-Ray Disc RW"_s},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(MediaTypeName(row.type), row.text) << row.type;
    }
}

TEST(MediaTypeNameTest, TypesWithoutATextAreEmptyAndNotUnknown)
{
    for (const qint32 type : {12, 14, 15, 16, 20, 100, -1}) {
        EXPECT_EQ(MediaTypeName(type), QString()) << type;
    }
}

TEST(SpeedToMultipleTest, EachFamilyHasItsSingleSpeed)
{
    EXPECT_EQ(SpeedToMultiple(3300, u"    DVD+R"_s), 5);
    EXPECT_EQ(SpeedToMultiple(1200, u"    CD-R"_s), 14);
    EXPECT_EQ(SpeedToMultiple(3600, u"    CD-R"_s), 41);
    EXPECT_EQ(SpeedToMultiple(3900, u"    CD-RW"_s), 44);
    EXPECT_EQ(SpeedToMultiple(10880, u"    DVD-R"_s), 16);
    EXPECT_EQ(SpeedToMultiple(2195, u"    Blue-Ray BD-rom"_s), 0);
    EXPECT_EQ(SpeedToMultiple(36000, u"    Blue-Ray BD-rom"_s), 2);
}

TEST(SpeedToMultipleTest, WritableBluraysNameNoFamily)
{
    EXPECT_EQ(SpeedToMultiple(26340, u"    Blue-Ray Disc R"_s), 0);
    EXPECT_EQ(SpeedToMultiple(26340, u"    Blue-Ray Disc RW"_s), 0);
    EXPECT_EQ(SpeedToMultiple(26340, QString()), 0);
}

TEST(SpeedToMultipleTest, WordsCountWithRegardToCaseAndInTheirOrder)
{
    EXPECT_EQ(SpeedToMultiple(1200, u"cd-r"_s), 0);
    EXPECT_EQ(SpeedToMultiple(1350, u"BD DVD"_s), 2);
    EXPECT_EQ(SpeedToMultiple(176, u"DVD CD"_s), 2);
}

TEST(SpeedToMultipleTest, HalvesGoToTheEvenNeighbour)
{
    EXPECT_EQ(SpeedToMultiple(44, u"CD"_s), 0);
    EXPECT_EQ(SpeedToMultiple(132, u"CD"_s), 2);
    EXPECT_EQ(SpeedToMultiple(220, u"CD"_s), 2);
}

TEST(SpeedToMultipleTest, AResultPastSixteenBitsIsError6)
{
    EXPECT_EQ(SpeedToMultiple(32767.0 * 88, u"CD"_s), 32767);
    EXPECT_EQ(test::ErrorNumberOf([] { SpeedToMultiple(32768.0 * 88, u"CD"_s); }), 6);
}
