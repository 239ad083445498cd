// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/EnumerateRecorders.h"

#include "mastering/DriveMastering.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeDrive.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/UnaskedMastering.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace velmora::test {

using namespace Qt::StringLiterals;
using recorder::EnumerateRecorders;
using recorder::RecorderItemText;
using recorder::RecorderRecord;

namespace {

class EnumerateRecordersTest : public testing::Test {
protected:
    std::shared_ptr<FakeDrive> Plug(const QString& id, const QString& path)
    {
        auto drive = source->Plug(id);
        drive->facts.vendor = u"TSSTcorp"_s;
        drive->facts.product = u"CDDVDW SH-224"_s;
        drive->facts.paths = {path};
        return drive;
    }

    FakePump pump;
    FakeClock clock {pump};
    std::shared_ptr<FakeDriveSource> source = std::make_shared<FakeDriveSource>();
    std::unique_ptr<imapi::Mastering> mastering = mastering::MasteringOf({source}, clock);
    recorder::RecorderState state;
};

/// A master that may fail, and recorders that stop answering at one of their members.
class Stubborn final : public UnaskedMastering {
public:
    class Master final : public imapi::IDiscMaster2 {
    public:
        explicit Master(const Stubborn& owner)
            : owner_(owner)
        {
        }
        qint32 Count() const override
        {
            if (owner_.failsAtCount) {
                throw runtime::RuntimeError(-2147467259);
            }
            return owner_.count;
        }
        QString Item(qint32) const override
        {
            owner_.Step();
            return u"sr0"_s;
        }

    private:
        const Stubborn& owner_;
    };

    class Recorder final : public UnaskedRecorder {
    public:
        explicit Recorder(const Stubborn& owner)
            : owner_(owner)
        {
        }
        void InitializeDiscRecorder(const QString&) override { owner_.Step(); }
        QString ActiveDiscRecorder() const override { return owner_.Text(u"id"_s); }
        QString VendorId() const override { return owner_.Text(u"vendor"_s); }
        QString ProductId() const override { return owner_.Text(u"product"_s); }
        QString ProductRevision() const override { return owner_.Text(u"revision"_s); }
        QString VolumeName() const override { return owner_.Text(u"volume"_s); }
        bool DeviceCanLoadMedia() const override { return owner_.Text({}).isEmpty(); }
        qint32 LegacyDeviceNumber() const override
        {
            owner_.Step();
            return 4;
        }
        QStringList VolumePathNames() const override { return {owner_.Text(u"/dev/sr4"_s)}; }
        QList<qint32> SupportedProfiles() const override
        {
            owner_.Step();
            return {9};
        }

    private:
        const Stubborn& owner_;
    };

    imapi::DiscMasterRef CreateDiscMaster() override { return std::make_shared<Master>(*this); }
    imapi::RecorderRef CreateDiscRecorder() override
    {
        Step();
        return std::make_shared<Recorder>(*this);
    }

    void Step() const
    {
        if (stepsLeft-- == 0) {
            throw runtime::RuntimeError(-1062600176);
        }
    }
    QString Text(const QString& text) const
    {
        Step();
        return text;
    }

    bool failsAtCount = false;
    qint32 count = 1;
    mutable int stepsLeft = -1;
};

} // namespace

TEST_F(EnumerateRecordersTest, ARecordHoldsWhatTheRecorderSays)
{
    source->Plug(u"drive-1"_s)->facts = {.id = u"drive-1"_s,
        .vendor = u"HL-DT-ST"_s,
        .product = u"BD-RE  BU40N"_s,
        .revision = u"1.03"_s,
        .volumeName = u"/dev/disk/by-id/x"_s,
        .canLoadMedia = true,
        .legacyNumber = 2,
        .paths = {u"/dev/sr2"_s},
        .profiles = {67, 65, 43, 9}};

    ASSERT_EQ(EnumerateRecorders(state, *mastering), 1);
    const RecorderRecord expected {u"drive-1"_s,
        u"HL-DT-ST"_s,
        u"BD-RE  BU40N"_s,
        u"1.03"_s,
        u"/dev/disk/by-id/x"_s,
        u"True"_s,
        u"2"_s,
        u"/dev/sr2"_s,
        0x40 | 0x80 | 0x20 | 0x08 | 0x01,
        u"BD-RW;BD-R;DVD+R DL;CD-R;"_s};
    EXPECT_EQ(state.RecorderList[0], expected);
    EXPECT_EQ(RecorderItemText(state.RecorderList[0]), u"HL-DT-ST:BD-RE  BU40N (/dev/sr2)"_s);
    EXPECT_EQ(state.DiscMaster, nullptr);
    EXPECT_EQ(state.CurrentRecorder, nullptr);
}

TEST_F(EnumerateRecordersTest, ThreeRecordersMakeFourElementsAndTheLastIsEmpty)
{
    Plug(u"c"_s, u"/dev/sr0"_s);
    Plug(u"a"_s, u"/dev/sr1"_s);
    Plug(u"b"_s, u"/dev/sr2"_s);

    EXPECT_EQ(EnumerateRecorders(state, *mastering), 3);
    ASSERT_EQ(state.RecorderList.size(), 4U);
    EXPECT_EQ(state.RecorderList[0].RecorderId, u"c"_s); // in the platform's order
    EXPECT_EQ(state.RecorderList[1].RecorderId, u"a"_s);
    EXPECT_EQ(state.RecorderList[2].RecorderId, u"b"_s);
    EXPECT_EQ(state.RecorderList[3], RecorderRecord {});
}

TEST_F(EnumerateRecordersTest, EqualRecordersDifferByTheirPath)
{
    Plug(u"a"_s, u"/dev/sr0"_s);
    Plug(u"b"_s, u"/dev/sr1"_s);
    EnumerateRecorders(state, *mastering);
    EXPECT_EQ(RecorderItemText(state.RecorderList[0]), u"TSSTcorp:CDDVDW SH-224 (/dev/sr0)"_s);
    EXPECT_EQ(RecorderItemText(state.RecorderList[1]), u"TSSTcorp:CDDVDW SH-224 (/dev/sr1)"_s);
}

TEST_F(EnumerateRecordersTest, OfSeveralPathsTheLastIsShown)
{
    Plug(u"a"_s, {})->facts.paths = {u"/dev/sr0"_s, u"/dev/cdrom"_s};
    EnumerateRecorders(state, *mastering);
    EXPECT_EQ(state.RecorderList[0].RecorderPath, u"/dev/cdrom"_s);
}

TEST_F(EnumerateRecordersTest, WithoutAPathTheParenthesesAreEmpty)
{
    Plug(u"a"_s, {})->facts.paths = {};
    EnumerateRecorders(state, *mastering);
    EXPECT_EQ(RecorderItemText(state.RecorderList[0]), u"TSSTcorp:CDDVDW SH-224 ()"_s);
}

TEST_F(EnumerateRecordersTest, AProfileTwiceCountsOnce)
{
    Plug(u"a"_s, {})->facts.profiles = {9, 9, 19, 20};
    EnumerateRecorders(state, *mastering);
    EXPECT_EQ(state.RecorderList[0].RecorderMediaMask, 0x11);
    EXPECT_EQ(state.RecorderList[0].RecorderMediaList, u"CD-R;DVD-RW;"_s);
}

TEST_F(EnumerateRecordersTest, ARecorderThatCantLoadSaysFalse)
{
    Plug(u"a"_s, {});
    EnumerateRecorders(state, *mastering);
    EXPECT_EQ(state.RecorderList[0].RecorderCanLoadMedia, u"False"_s);
}

TEST_F(EnumerateRecordersTest, ARecorderThatFailsKeepsItsPlace)
{
    Plug(u"a"_s, u"/dev/sr0"_s)->Fail("Identify", {drive::hresult::kAccessDenied});
    Plug(u"b"_s, u"/dev/sr1"_s);

    EXPECT_EQ(EnumerateRecorders(state, *mastering), 2);
    const RecorderRecord failed {.RecorderId = u"@@@@@@@@@@"_s,
        .RecorderVendor = u"Lecteur CD-Rom"_s,
        .RecorderProduct = u"- non disponible actuellement -"_s,
        .RecorderCanLoadMedia = u"False"_s};
    EXPECT_EQ(state.RecorderList[0], failed);
    EXPECT_EQ(RecorderItemText(state.RecorderList[0]),
        u"Lecteur CD-Rom:- non disponible actuellement - ()"_s);
    EXPECT_EQ(state.RecorderList[1].RecorderId, u"b"_s);
    EXPECT_EQ(state.CurrentRecorder, nullptr);
}

TEST_F(EnumerateRecordersTest, AFailedRecordKeepsWhatWasReadBefore)
{
    // The steps: item, new, initialize, then the members in the order of the record.
    struct Row {
        int step;
        RecorderRecord record;
    };
    const QString mark = u"@@@@@@@@@@"_s;
    const QString marked = u"id"_s + mark;
    const std::vector<Row> rows {
        {0, {.RecorderId = mark}},
        {1, {.RecorderId = mark}},
        {2, {.RecorderId = mark}},
        {3, {.RecorderId = mark}},
        {4, {.RecorderId = marked}},
        {5, {.RecorderId = marked}},
        {6, {.RecorderId = marked}},
        {7, {.RecorderId = marked, .RecorderRevision = u"revision"_s}},
        {8,
            {.RecorderId = marked,
                .RecorderRevision = u"revision"_s,
                .RecorderVolumeName = u"volume"_s}},
        {10,
            {.RecorderId = marked,
                .RecorderRevision = u"revision"_s,
                .RecorderVolumeName = u"volume"_s,
                .RecorderLegacyNumber = u"4"_s}},
        {11,
            {.RecorderId = marked,
                .RecorderRevision = u"revision"_s,
                .RecorderVolumeName = u"volume"_s,
                .RecorderLegacyNumber = u"4"_s,
                .RecorderPath = u"/dev/sr4"_s}},
    };
    for (Row row : rows) {
        Stubborn stubborn;
        stubborn.stepsLeft = row.step;
        row.record.RecorderVendor = u"Lecteur CD-Rom"_s;
        row.record.RecorderProduct = u"- non disponible actuellement -"_s;
        row.record.RecorderCanLoadMedia = u"False"_s;
        EXPECT_EQ(EnumerateRecorders(state, stubborn), 1);
        EXPECT_EQ(state.RecorderList[0], row.record) << row.step;
    }
}

TEST_F(EnumerateRecordersTest, WithoutARecorderTheListHasOneEmptyElement)
{
    EXPECT_EQ(EnumerateRecorders(state, *mastering), 0);
    EXPECT_EQ(state.RecorderList, std::vector<RecorderRecord> {RecorderRecord {}});
}

TEST_F(EnumerateRecordersTest, APlatformThatCantCountHasNoRecorderAndReleasesNothing)
{
    Stubborn stubborn;
    stubborn.failsAtCount = true;
    EXPECT_EQ(EnumerateRecorders(state, stubborn), 0);
    EXPECT_TRUE(state.RecorderList.empty());
    EXPECT_NE(state.DiscMaster, nullptr);
}

TEST_F(EnumerateRecordersTest, MoreRecordersThanSixteenBitsCountAreNone)
{
    Stubborn stubborn;
    stubborn.count = std::numeric_limits<qint16>::max() + 1;
    EXPECT_EQ(EnumerateRecorders(state, stubborn), 0);
}

} // namespace velmora::test
