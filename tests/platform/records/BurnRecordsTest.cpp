// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/BurnRecords.h"

#include "tests/support/TemporaryFolder.h"

#include <QFileInfo>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace velmora::test {
namespace {

using namespace Qt::StringLiterals;
using records::BurnRecord;
using records::BurnRecords;

constexpr qint64 kSectorsOfPiece = BurnRecord::kPieceBytes / 2048;

BurnRecord RecordOf(const QString& volume, qint64 pieces = 3)
{
    return {.date = QDateTime::fromSecsSinceEpoch(1'700'000'000, QTimeZone::utc()),
        .recorder = u"VELMORA Graveur virtuel"_s,
        .disc = u"DVD+R"_s,
        .volume = volume,
        .sectors = pieces * kSectorsOfPiece,
        .sha256 = QByteArray(32, '\x12'),
        .pieces = QByteArray(pieces * BurnRecord::kDigestBytes, '\x34'),
        .files = {{.path = "été/a.jpg",
                      .firstSector = 300,
                      .bytes = 5'000'000'000,
                      .digest = QByteArray(16, '\x56')},
            {.path = "latin\xE9", .firstSector = 400, .digest = QByteArray(16, '\x78')}}};
}

class BurnRecordsTest : public testing::Test {
protected:
    std::filesystem::path File(const std::string& name) const
    {
        return folder / "state" / "velmora" / "burns" / name;
    }

    TemporaryFolder folder;
    BurnRecords records {QString::fromStdString((folder / "state" / "velmora" / "burns").string())};
};

TEST_F(BurnRecordsTest, ARecordComesBackAsItWas)
{
    EXPECT_EQ(records.Keep(RecordOf(u"PHOTOS"_s)), std::nullopt);
    EXPECT_EQ(records.Read(1), RecordOf(u"PHOTOS"_s));
}

TEST_F(BurnRecordsTest, TheLastFailureTakesThePlaceOfTheOneBeforeAndIsNoBurn)
{
    EXPECT_EQ(records.LastFailure(), std::nullopt);
    const records::WriteFailure failure {
        .date = QDateTime::fromSecsSinceEpoch(1'700'000'000, QTimeZone::utc()),
        .recorder = u"VELMORA VIRTUAL"_s,
        .revision = u"1.0"_s,
        .disc = u"DVD+R"_s,
        .step = u"writing"_s,
        .number = -1062599935,
        .sense = u"03/0C/09"_s,
        .sectors = 5000};
    records.KeepFailure(failure);
    EXPECT_EQ(records.LastFailure(), failure);
    records::WriteFailure next = failure;
    next.step = u"comparing"_s;
    records.KeepFailure(next);
    EXPECT_EQ(records.LastFailure(), next);
    EXPECT_TRUE(records.Numbers().isEmpty());
    namespace fs = std::filesystem;
    EXPECT_EQ(std::distance(fs::directory_iterator(File("")), {}), 1);
    EXPECT_EQ(fs::status(File("last-failure.json")).permissions(),
        fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(BurnRecordsTest, ADamagedFailureIsNone)
{
    records.Keep(RecordOf(u"PHOTOS"_s));
    for (const char* text :
        {"", "{}", "{\"date\":\"2026-03-09T07:05:04Z\",\"error\":0,\"step\":\"writing\"}"}) {
        std::ofstream(File("last-failure.json")) << text;
        EXPECT_EQ(records.LastFailure(), std::nullopt) << text;
    }
}

TEST_F(BurnRecordsTest, ARecordIsPrivate)
{
    namespace fs = std::filesystem;
    records.Keep(RecordOf(u"PHOTOS"_s));
    EXPECT_EQ(fs::status(File("0001.json")).permissions(),
        fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(File("")).permissions(), fs::perms::owner_all);
}

TEST_F(BurnRecordsTest, RecordsKeepTheirNumbers)
{
    for (const QString& volume : {u"A"_s, u"B"_s, u"C"_s}) {
        records.Keep(RecordOf(volume));
    }
    EXPECT_TRUE(records.Forget(2));
    EXPECT_FALSE(records.Forget(2));
    EXPECT_EQ(records.Numbers(), (QList<int> {1, 3}));
    EXPECT_EQ(records.Read(3)->volume, u"C"_s);
    EXPECT_EQ(records.Read(2), std::nullopt);
}

TEST_F(BurnRecordsTest, WithoutAFolderThereAreNone)
{
    EXPECT_TRUE(records.Numbers().isEmpty());
    EXPECT_EQ(records.Read(1), std::nullopt);
    EXPECT_FALSE(records.Forget(1));
}

TEST_F(BurnRecordsTest, WhatCannotBeKeptIsTold)
{
    std::filesystem::create_directories(folder / "state");
    std::ofstream(folder / "state" / "velmora") << "no folder";
    const std::optional<QString> why = records.Keep(RecordOf(u"A"_s));
    ASSERT_TRUE(why);
    EXPECT_TRUE(why->startsWith(u"La trace de cette gravure n'a pas pu être gardée dans « "_s));
}

TEST_F(BurnRecordsTest, NothingIsLeftBesideTheRecords)
{
    records.Keep(RecordOf(u"A"_s));
    const std::filesystem::directory_iterator all(File(""));
    EXPECT_EQ(std::distance(begin(all), end(all)), 1);
}

TEST_F(BurnRecordsTest, WhatIsNoRecordIsNone)
{
    const QByteArray good = TextOf(RecordOf(u"A"_s));
    EXPECT_TRUE(records::RecordFrom(good));
    EXPECT_FALSE(records::RecordFrom({}));
    EXPECT_FALSE(records::RecordFrom(good.chopped(2)));
    EXPECT_FALSE(records::RecordFrom(QByteArray(good).replace("\"version\":1", "\"version\":2")));
    EXPECT_FALSE(
        records::RecordFrom(QByteArray(good).replace("\"sectors\":1536", "\"sectors\":1537")));
    EXPECT_FALSE(records::RecordFrom(QByteArray(good).replace("300", "500")));
}

TEST_F(BurnRecordsTest, TheRecordOfAFullBluRayIsSmall)
{
    constexpr qint64 kPieces = 25'000'000'000 / BurnRecord::kPieceBytes;
    EXPECT_LT(TextOf(RecordOf(u"A"_s, kPieces)).size(), 1'000'000);
}

TEST(BurnRecordsFolderTest, ItLiesAmongTheStatesOfTheUser)
{
    const QByteArray before = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", "/states");
    EXPECT_EQ(BurnRecords::FolderOfUser(), u"/states/velmora/burns"_s);
    qputenv("XDG_STATE_HOME", "not/absolute");
    EXPECT_TRUE(BurnRecords::FolderOfUser().endsWith(u"/.local/state/velmora/burns"_s));
    qputenv("XDG_STATE_HOME", before);
}

} // namespace
} // namespace velmora::test
