// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/DataBench.h"
#include "tests/support/PathLiterals.h"

#include "drive/PublishedCodes.h"
#include "tests/platform/mastering/ErrorNumbers.h"

#include <QCryptographicHash>

namespace velmora::test {

using namespace path_literals;
namespace {

using imapi::ComparisonEnd;

/// A stream with two files.
class NamedStream final : public UnaskedStream {
public:
    std::size_t Read(std::span<std::byte> out) override
    {
        std::ranges::fill(out, std::byte {7});
        return out.size();
    }
    void Seek(quint64) override { }
    std::vector<imapi::FilePart> FilesBetween(quint64, quint64) const override { return {}; }
    std::vector<imapi::FileExtent> Files(std::size_t) const override
    {
        return {{u"a\\b.txt"_disc, 2048, 100}, {u"c"_disc, 4096, 3 * 2048}};
    }
    QString VolumeName() const override { return u"PHOTOS"_s; }
    quint64 Size() const override { return 600 * 2048ULL; }
};

class BurnMemoryTest : public DataBench {
protected:
    const records::BurnRecord& Written()
    {
        EXPECT_EQ(NumberOfWrite(std::make_shared<NamedStream>()), 0);
        return kept.at(0);
    }
};

TEST_F(BurnMemoryTest, EveryBurnIsRemembered)
{
    drive->reports
        = {{.action = drive::WriteAction::WritingData, .startSector = 1000, .sectorCount = 600}};
    const records::BurnRecord& record = Written();
    EXPECT_EQ(record.date, QDateTime({2026, 3, 9}, {7, 5, 4}, QTimeZone::utc()));
    EXPECT_EQ(record.disc, u"CD-R"_s);
    EXPECT_EQ(record.volume, u"PHOTOS"_s);
    EXPECT_EQ(record.firstSector, 1000);
    EXPECT_EQ(record.sectors, 600);
    EXPECT_EQ(record.sha256,
        QCryptographicHash::hash(QByteArray(600 * 2048, '\7'), QCryptographicHash::Sha256));
    EXPECT_EQ(record.pieces.size(), 32);
    ASSERT_EQ(record.files.size(), 2U);
    EXPECT_EQ(record.files[0].path, "a/b.txt");
    EXPECT_EQ(record.files[0].firstSector, 1001);
    EXPECT_EQ(record.files[0].bytes, 100U);
    EXPECT_NE(record.files[0].digest, record.files[1].digest);
    EXPECT_EQ(records::RecordFrom(TextOf(record)), record);
}

TEST_F(BurnMemoryTest, ADiscThatIsComparedIsRememberedWithTheSameSum)
{
    comparesAfterWrite = true;
    EXPECT_EQ(Written().sha256, writer->Comparison().sha256);
    EXPECT_EQ(writer->Comparison().end, ComparisonEnd::Same);
}

TEST_F(BurnMemoryTest, ADiscThatIsNotAsWrittenIsNotRemembered)
{
    comparesAfterWrite = true;
    writer->OnUpdate([this](const imapi::IDiscFormat2DataEventArgs& event) {
        if (event.CurrentAction == drive::WriteAction::Verifying) {
            drive->written[0] = std::byte {1};
        }
    });
    EXPECT_NE(NumberOfWrite(std::make_shared<NamedStream>()), 0);
    EXPECT_TRUE(kept.empty());
}

TEST_F(BurnMemoryTest, AWriteThatFailsIsNotRemembered)
{
    drive->Fail("Write", {drive::hresult::kWriteError});
    NumberOfWrite(std::make_shared<NamedStream>());
    EXPECT_TRUE(kept.empty());
}

TEST_F(BurnMemoryTest, ADiscWhoseStopCameTooLateIsRemembered)
{
    drive->reports = {{.action = drive::WriteAction::Finalization, .sectorCount = 600},
        {.action = drive::WriteAction::Completed, .sectorCount = 600}};
    writer->OnUpdate([this](const imapi::IDiscFormat2DataEventArgs&) { writer->CancelWrite(); });
    EXPECT_EQ(NumberOfWrite(std::make_shared<NamedStream>()), drive::hresult::kCancelled);
    EXPECT_EQ(kept.size(), 1U);
    EXPECT_TRUE(failures.empty());

    comparesAfterWrite = true;
    EXPECT_EQ(NumberOfWrite(std::make_shared<NamedStream>()), drive::hresult::kCancelled);
    EXPECT_EQ(writer->Comparison().end, imapi::ComparisonEnd::Stopped);
    EXPECT_EQ(writer->Comparison().sectors, 600);
}

TEST_F(BurnMemoryTest, HowAWriteFailedIsRemembered)
{
    drive->reports = {{.action = drive::WriteAction::CalibratingPower, .sectorCount = 600}};
    comparesAfterWrite = true;
    EXPECT_EQ(NumberOfWrite(std::make_shared<NamedStream>()), 0) << "nothing to remember";
    EXPECT_TRUE(failures.empty());
    drive->Fail("Write", {drive::hresult::kWriteError});
    const qint32 number = NumberOfWrite(std::make_shared<NamedStream>());
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0].number, number);
    EXPECT_EQ(failures[0].date, QDateTime({2026, 3, 9}, {7, 5, 4}, QTimeZone::utc()));
    EXPECT_EQ(failures[0].disc, u"CD-R"_s);
    EXPECT_EQ(failures[0].step, u"examining"_s);
    EXPECT_EQ(failures[0].sectors, 600);
}

TEST_F(BurnMemoryTest, AStopIsNoFailureAndAHurtDiscIsOne)
{
    drive->Fail("Write", {drive::hresult::kCancelled});
    NumberOfWrite(std::make_shared<NamedStream>());
    EXPECT_TRUE(failures.empty());
    comparesAfterWrite = true;
    drive->reports = {{.action = drive::WriteAction::WritingData, .sectorCount = 600},
        {.action = drive::WriteAction::Completed, .sectorCount = 600}};
    drive->onRead = [this](qint64) { drive->written[0] = std::byte {1}; };
    EXPECT_NE(NumberOfWrite(std::make_shared<NamedStream>()), 0);
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_EQ(failures[0].step, u"comparing"_s);
}

TEST_F(BurnMemoryTest, WhatCannotBeKeptIsARemarkAndNoFailure)
{
    whyNotKept = u"Le disque dur est plein."_s;
    Written();
    EXPECT_EQ(writer->Remarks(), QStringList {u"Le disque dur est plein."_s});
    whyNotKept.reset();
    NumberOfWrite(std::make_shared<NamedStream>());
    EXPECT_TRUE(writer->Remarks().isEmpty());
}

} // namespace
} // namespace velmora::test
