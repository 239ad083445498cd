// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/DiscKinds.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace velmora::drive::test {

using namespace Qt::StringLiterals;
using enum IMAPI_MEDIA_PHYSICAL_TYPE;

namespace {

constexpr qint32 kLastProfile = 0x60;

TEST(DiscKindsTest, EachPublishedNumberIsOneKind)
{
    qint32 number = 0;
    for (const DiscKind& kind : AllDiscKinds()) {
        EXPECT_EQ(static_cast<qint32>(kind.type), ++number);
        EXPECT_EQ(FindDiscKind(kind.type), &kind);
    }
    EXPECT_EQ(number, 19);
    EXPECT_EQ(FindDiscKind(Unknown), nullptr);
    EXPECT_EQ(FindDiscKind(static_cast<IMAPI_MEDIA_PHYSICAL_TYPE>(20)), nullptr);
}

TEST(DiscKindsTest, OnlyDiscsOfADriveOfTodayHaveANameOnThem)
{
    for (const DiscKind& kind : AllDiscKinds()) {
        const bool isOfToday = kind.family != DiscFamily::None && kind.family != DiscFamily::HdDvd;
        EXPECT_EQ(!kind.name.isEmpty(), isOfToday) << static_cast<qint32>(kind.type);
    }
    EXPECT_EQ(FindDiscKind(DvdPlusRwDualLayer)->name, u"DVD+RW DL");
}

TEST(DiscKindsTest, WhatCanBeErasedCanBeRecorded)
{
    QList<QString> erasable;
    for (const DiscKind& kind : AllDiscKinds()) {
        EXPECT_TRUE(kind.isRecordable || !kind.isErasable);
        EXPECT_EQ(IsErasable(kind.type), kind.isErasable);
        EXPECT_EQ(IsRecordable(kind.type), kind.isRecordable);
        if (kind.isErasable) {
            erasable.append(kind.name.toString());
        }
    }
    EXPECT_EQ(erasable,
        (QList {u"CD-RW"_s, u"DVD-RAM"_s, u"DVD+RW"_s, u"DVD-RW"_s, u"DVD+RW DL"_s, u"BD-RE"_s}));
    EXPECT_FALSE(IsRecordable(Unknown));
}

TEST(DiscKindsTest, AProfileIsRecordedAsItsKindSays)
{
    for (qint32 profile = 0; profile < kLastProfile; ++profile) {
        const ProfileFacts& facts = FactsOfProfile(profile);
        const DiscKind* kind = FindDiscKind(facts.type);
        if (kind == nullptr || kind->family == DiscFamily::None) {
            EXPECT_EQ(facts.recording, Recording::Unknown) << profile;
            continue;
        }
        const bool isRewritten = facts.recording == Recording::Overwritable
            || facts.recording == Recording::Sequential;
        EXPECT_EQ(facts.recording == Recording::Pressed, !kind->isRecordable) << profile;
        EXPECT_EQ(isRewritten, kind->isErasable) << profile;
    }
}

TEST(DiscKindsTest, SpeedsFallAndOnlyRecordableDiscsHaveThem)
{
    for (qint32 profile = 0; profile < kLastProfile; ++profile) {
        const ProfileFacts& facts = FactsOfProfile(profile);
        EXPECT_TRUE(std::ranges::is_sorted(facts.usualSpeeds, std::greater())) << profile;
        const bool isRecorded
            = facts.recording != Recording::Unknown && facts.recording != Recording::Pressed;
        EXPECT_EQ(facts.usualSpeeds[0] > 0, isRecorded) << profile;
    }
}

TEST(DiscKindsTest, SingleSpeedGoesByTheFamily)
{
    EXPECT_EQ(SingleSpeedOf(CdRw), 75U);
    EXPECT_EQ(SingleSpeedOf(DvdRam), 680U);
    EXPECT_EQ(SingleSpeedOf(BdRom), 2195U);
    EXPECT_EQ(SingleSpeedOf(Unknown), 0U);
}

TEST(DiscKindsTest, ADriveRecordsWhatOneOfItsProfilesRecords)
{
    EXPECT_TRUE(CanRecord({profile::kCdRom, profile::kCdR}));
    EXPECT_FALSE(CanRecord({profile::kCdRom, profile::kDvdRom, profile::kRemovableDisk}));
    EXPECT_TRUE(CanErase({profile::kCdRom, profile::kBdRe}));
    EXPECT_FALSE(CanErase({profile::kCdR, profile::kDvdPlusR}));
}

} // namespace

} // namespace velmora::drive::test
