// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/ProfileNames.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>

using namespace velmora;
using namespace Qt::StringLiterals;
using recorder::ProfileToList;
using recorder::ProfileToMask;

namespace {

qint32 MaskOf(std::initializer_list<qint32> profiles)
{
    qint32 mask = 0;
    for (const qint32 profile : profiles) {
        mask = ProfileToMask(mask, profile);
    }
    return mask;
}

QString ListOf(std::initializer_list<qint32> profiles)
{
    QString list;
    for (const qint32 profile : profiles) {
        list = ProfileToList(list, profile);
    }
    return list;
}

} // namespace

TEST(ProfileTest, EachProfileHasItsBitsAndItsName)
{
    struct Row {
        qint32 profile;
        qint32 mask;
        QString name;
    };
    const std::array rows {
        Row {9, 0x01, u"CD-R;"_s},
        Row {10, 0x02, u"CD-RW;"_s},
        Row {17, 0x04, u"DVD-R;"_s},
        Row {18, 0x10, u"DVD-RAM;"_s},
        Row {19, 0x10, u"DVD-RW;"_s},
        Row {20, 0x10, u"DVD-RW;"_s},
        Row {21, 0x08, u"DVD-R DL;"_s},
        Row {22, 0x08, u"DVD-R DL;"_s},
        Row {26, 0x10, u"DVD+RW;"_s},
        Row {42, 0x10, u"DVD+RW;"_s},
        Row {27, 0x04, u"DVD+R;"_s},
        Row {43, 0x08, u"DVD+R DL;"_s},
        Row {65, 0x60, u"BD-R;"_s},
        Row {66, 0, u"BD-R;"_s},
        Row {67, 0xC0, u"BD-RW;"_s},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(MaskOf({row.profile}), row.mask) << row.profile;
        EXPECT_EQ(ListOf({row.profile}), row.name) << row.profile;
    }
}

TEST(ProfileTest, ARecorderOfBluraysHasThreeBitsAndTwoNames)
{
    EXPECT_EQ(MaskOf({65, 66, 67}), 0xE0);
    EXPECT_EQ(ListOf({65, 66, 67}), u"BD-R;BD-RW;"_s);
}

TEST(ProfileTest, RandomRecordingAloneIsNamedAndSetsNoBit)
{
    EXPECT_EQ(MaskOf({66}), 0);
    EXPECT_EQ(ListOf({66}), u"BD-R;"_s);
}

TEST(ProfileTest, MinusOneSetsTheBitsThatRandomRecordingLacks)
{
    EXPECT_EQ(MaskOf({-1}), 0x60);
    EXPECT_EQ(ListOf({-1}), QString());
}

TEST(ProfileTest, ANameInsideALongerOneIsNotTakenForIt)
{
    EXPECT_EQ(ProfileToList(u"DVD-R;"_s, 9), u"DVD-R;CD-R;"_s);
    EXPECT_EQ(ProfileToList(u"DVD-R DL;"_s, 17), u"DVD-R DL;DVD-R;"_s);
}

TEST(ProfileTest, EachNameComesOnceInTheOrderOfItsFirstAppearance)
{
    EXPECT_EQ(ListOf({27, 9, 42, 26, 9, 27}), u"DVD+R;CD-R;DVD+RW;"_s);
}

TEST(ProfileTest, ProfilesWithoutARowChangeNothing)
{
    for (const qint32 profile : {0, 1, 2, 8, 16, 64, 80, 65535}) {
        EXPECT_EQ(ProfileToMask(0x05, profile), 0x05) << profile;
        EXPECT_EQ(ProfileToList(u"CD-R;"_s, profile), u"CD-R;"_s) << profile;
    }
}
