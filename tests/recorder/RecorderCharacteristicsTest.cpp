// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/RecorderCharacteristics.h"

#include "recorder/ProfileNames.h"
#include "recorder/RecorderState.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using recorder::DescribeRecorder;
using test::ErrorNumberOf;
using Texts = std::array<QString, 5>;
using Boxes = std::array<QString, 4>;

namespace {

recorder::RecorderState With(const recorder::RecorderRecord& record)
{
    recorder::RecorderState state;
    state.RecorderList = {record, {}};
    return state;
}

recorder::RecorderState WithMedia(const QString& list) { return With({.RecorderMediaList = list}); }

} // namespace

TEST(RecorderCharacteristicsTest, TheFirstBoxesTellWhatTheRecorderIs)
{
    const auto state = With({.RecorderVendor = u"ASUS"_s,
        .RecorderProduct = u"BW-16D1HT"_s,
        .RecorderRevision = u"3.10"_s,
        .RecorderCanLoadMedia = u"True"_s,
        .RecorderPath = u"/dev/sr0"_s});
    EXPECT_EQ(DescribeRecorder(state, 0).Text1,
        (Texts {u"ASUS"_s, u"BW-16D1HT"_s, u"3.10"_s, u"/dev/sr0"_s, u"Oui"_s}));
}

TEST(RecorderCharacteristicsTest, AnUnusableRecorderIsShownAsItWasRead)
{
    const auto state = With({.RecorderId = recorder::kUnusableMark.toString(),
        .RecorderVendor = u"Lecteur CD-Rom"_s,
        .RecorderProduct = u"- non disponible actuellement -"_s,
        .RecorderRevision = u"1.0"_s,
        .RecorderCanLoadMedia = u"False"_s});
    EXPECT_EQ(DescribeRecorder(state, 0).Text1,
        (Texts {u"Lecteur CD-Rom"_s,
            u"- non disponible actuellement -"_s,
            u"1.0"_s,
            QString(),
            u"Non"_s}));
}

TEST(RecorderCharacteristicsTest, EachDiscStandsInTheBoxOfItsKind)
{
    QString list;
    for (const qint32 profile : {9, 10, 17, 19, 27, 43}) {
        list = recorder::ProfileToList(list, profile);
    }
    EXPECT_EQ(DescribeRecorder(WithMedia(list), 0).Text2,
        (Boxes {u"CD-R\r\nCD-RW\r\n"_s,
            u"DVD-R\r\nDVD-RW\r\n"_s,
            u"DVD+R\r\nDVD+R DL\r\n"_s,
            QString()}));
}

TEST(RecorderCharacteristicsTest, TheOrderIsTheListsAndOtherNamesAreLeftOut)
{
    EXPECT_EQ(DescribeRecorder(WithMedia(u"BD-RE;DVD-RAM;HD DVD-R;cd;BD-R;DVD;CD-ROM;"_s), 0).Text2,
        (Boxes {u"CD-ROM\r\n"_s, u"DVD-RAM\r\n"_s, QString(), u"BD-RE\r\nBD-R\r\n"_s}));
}

TEST(RecorderCharacteristicsTest, WhatStandsBehindTheLastSemicolonIsLeftOut)
{
    EXPECT_EQ(DescribeRecorder(WithMedia(u"CD-R;CD-RW"_s), 0).Text2[0], u"CD-R\r\n"_s);
    EXPECT_EQ(DescribeRecorder(WithMedia(u"CD-R"_s), 0).Text2, Boxes());
}

TEST(RecorderCharacteristicsTest, AnEmptyListLeavesTheBoxesEmpty)
{
    EXPECT_EQ(DescribeRecorder(WithMedia(QString()), 0).Text2, Boxes());
}

TEST(RecorderCharacteristicsTest, APlaceOutsideTheListIsError9)
{
    const auto state = With({});
    EXPECT_EQ(ErrorNumberOf([&] { DescribeRecorder(state, -1); }), 9);
    EXPECT_EQ(ErrorNumberOf([&] { DescribeRecorder(state, 1); }), 0);
    EXPECT_EQ(ErrorNumberOf([&] { DescribeRecorder(state, 2); }), 9);
}
