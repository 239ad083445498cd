// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using velmora::test::ErrorNumberOf;

using RecordersTest = VirtualBench;

namespace {

std::vector<std::filesystem::path> SectorFiles(const std::filesystem::path& recorder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(recorder)) {
        if (entry.path().extension() == ".iso") {
            files.push_back(entry.path());
        }
    }
    return files;
}

void WriteFile(const std::filesystem::path& path, const std::vector<std::byte>& bytes)
{
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
}

} // namespace

TEST_F(RecordersTest, NamesLeadNowhereElse)
{
    for (const QStringView name : {u"A", u"Graveur 1", u"été", u"a.b-c_d", u"7"}) {
        EXPECT_TRUE(Recorders::IsName(name.toString())) << name.toString().toStdString();
    }
    for (const QStringView name : {u"",
             u".",
             u"..",
             u"../A",
             u"a/b",
             u"a\\b",
             u".a",
             u" a",
             u"a ",
             u"-a",
             u"a\n",
             u"a:b",
             u"~",
             u"01234567890123456789012345678901234567890"}) {
        const QString text = name.toString();
        EXPECT_FALSE(Recorders::IsName(text)) << text.toStdString();
        EXPECT_EQ(ErrorNumberOf([&] { recorders.Create(text); }), 5);
        EXPECT_EQ(ErrorNumberOf([&] { recorders.Eject(text); }), 5);
    }
    EXPECT_FALSE(Recorders::IsName(QString(QChar(u'\0'))));
    EXPECT_EQ(recorders.Names(), QStringList {u"A"_s});
}

TEST_F(RecordersTest, ARecorderIsMadeOnce)
{
    EXPECT_EQ(ErrorNumberOf([&] { recorders.Create(u"A"_s); }), 58);
    EXPECT_EQ(ErrorNumberOf([&] { recorders.Show(u"B"_s); }), 76);
    recorders.Create(u"B"_s);
    EXPECT_FALSE(recorders.Show(u"B"_s).disc);
}

TEST_F(RecordersTest, ARecorderCantBeMadeWhereAFileLies)
{
    folder.MakeFile("file", 1);
    const Recorders nowhere(folder.Path().string() + "/file");
    EXPECT_EQ(ErrorNumberOf([&] { nowhere.Create(u"A"_s); }), 75);
}

TEST_F(RecordersTest, StandInTheUsersDataFolder)
{
    qputenv("XDG_DATA_HOME", "/tmp/data");
    EXPECT_EQ(Recorders::OfUser().Root(), "/tmp/data/velmora/recorders");
    qputenv("XDG_DATA_HOME", "relative");
    const std::string home = std::getenv("HOME");
    EXPECT_EQ(Recorders::OfUser().Root(), home + "/.local/share/velmora/recorders");
    qunsetenv("XDG_DATA_HOME");
    EXPECT_EQ(Recorders::OfUser().Root(), home + "/.local/share/velmora/recorders");
}

TEST_F(RecordersTest, AnImageBecomesAPressedDisc)
{
    const std::vector<std::byte> bytes = Pattern(40, 5);
    WriteFile(folder / "image.iso", bytes);
    recorders.Insert(u"A"_s, {.image = folder / "image.iso"}, clock);
    const drive::DiscInfo info = drive.Examine();
    EXPECT_EQ(info.profile, 0x08);
    EXPECT_EQ(info.state, drive::DiscState::Closed);
    EXPECT_EQ(info.totalSectors, 40);
    EXPECT_EQ(ReadBack(0, 40), bytes);
}

TEST_F(RecordersTest, AnImageIsFilledUpToWholeSectors)
{
    folder.MakeFile("image.iso", 3 * kSector + 1);
    recorders.Insert(u"A"_s, {.image = folder / "image.iso"}, clock);
    EXPECT_EQ(drive.Examine().totalSectors, 4);
    EXPECT_EQ(ReadBack(3, 1), std::vector<std::byte>(kSector));
}

TEST_F(RecordersTest, AnImageFindsADiscOfItsSize)
{
    EXPECT_EQ(PressedFor(404'850).profile, 0x08);
    EXPECT_EQ(PressedFor(404'851).profile, 0x10);
    EXPECT_EQ(PressedFor(4'173'824).profile, 0x10);
    EXPECT_EQ(PressedFor(4'173'825).profile, 0x40);
}

TEST_F(RecordersTest, AnImageMayBeTheFirstSessionOfARecordableDisc)
{
    const std::vector<std::byte> bytes = Pattern(50, 6);
    WriteFile(folder / "image.iso", bytes);
    recorders.Insert(u"A"_s,
        {.medium = FindMedium(u"bd-r"),
            .image = folder / "image.iso",
            .preset = DiscPreset::Appendable},
        clock);
    EXPECT_EQ(drive.Examine().state, drive::DiscState::Appendable);
    ASSERT_EQ(Write(16, true, 8), 0);
    EXPECT_EQ(ReadBack(0, 50), bytes);
    EXPECT_EQ(ReadBack(50, 16), Pattern(16, 8));
}

TEST_F(RecordersTest, WhatIsNoImageLeavesTheDiscInPlace)
{
    Insert(u"dvd+r");
    const auto errorOf = [&](const std::string& image, const MediumFacts* medium = nullptr) {
        return ErrorNumberOf(
            [&] { recorders.Insert(u"A"_s, {.medium = medium, .image = image}, clock); });
    };
    EXPECT_EQ(errorOf(folder / "none.iso"), 53);
    EXPECT_EQ(errorOf(folder.Path()), 5);
    EXPECT_EQ(errorOf("/dev/zero"), 5);
    EXPECT_EQ(errorOf(folder.MakeFile("empty.iso", 0)), 5);
    EXPECT_EQ(errorOf({}), 5);
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf(folder / "pipe"), 5);
    EXPECT_EQ(drive.Examine().profile, 0x1B);
    EXPECT_EQ(SectorFiles(folder / "recorders/A").size(), 1U);
}

TEST_F(RecordersTest, ARecordedDiscNeedsASample)
{
    const Recorders bare(recorders.Root());
    for (const DiscPreset preset : {DiscPreset::Appendable, DiscPreset::Closed, DiscPreset::Full}) {
        EXPECT_EQ(ErrorNumberOf([&] {
            bare.Insert(u"A"_s, {.medium = FindMedium(u"cd-r"), .preset = preset}, clock);
        }),
            5);
    }
    EXPECT_EQ(
        ErrorNumberOf([&] { bare.Insert(u"A"_s, {.medium = FindMedium(u"dvd-rom")}, clock); }), 5);
    bare.Insert(u"A"_s, {.medium = FindMedium(u"dvd+r")}, clock);
    EXPECT_EQ(drive.Examine().state, drive::DiscState::Blank);
}

TEST_F(RecordersTest, AnImageThatIsTooLargeForItsDiscIsRefused)
{
    Insert(u"dvd+r");
    const std::string image = folder.MakeFile("large.iso", 333'001 * kSector);
    EXPECT_EQ(ErrorNumberOf([&] {
        recorders.Insert(u"A"_s,
            {.medium = FindMedium(u"cd-r-74"), .image = image, .preset = DiscPreset::Closed},
            clock);
    }),
        Seen(drive::hresult::kStreamTooLarge));
    EXPECT_EQ(drive.Examine().profile, 0x1B);
    EXPECT_EQ(SectorFiles(folder / "recorders/A").size(), 1U);
}

TEST_F(RecordersTest, ADiscThatIsReplacedTakesItsSectorsAlong)
{
    for (int time = 0; time < 3; ++time) {
        Insert(u"dvd+r");
        ASSERT_EQ(Write(10), 0);
        EXPECT_EQ(SectorFiles(folder / "recorders/A").size(), 1U);
    }
    recorders.TakeOut(u"A"_s);
    EXPECT_TRUE(SectorFiles(folder / "recorders/A").empty());
    EXPECT_TRUE(Now().trayOpen);
}

TEST_F(RecordersTest, AFaultHasASectorOnTheDisc)
{
    EXPECT_EQ(ErrorNumberOf([&] { recorders.Plan(u"A"_s, {.sector = -1}); }), 5);
    EXPECT_TRUE(Now().faults.isEmpty());
}

TEST_F(RecordersTest, EveryFaultHasAKey)
{
    for (const FaultKind kind : {FaultKind::MediumError,
             FaultKind::LossOfStreaming,
             FaultKind::Removed,
             FaultKind::Unplugged,
             FaultKind::ReadError,
             FaultKind::NeverReady,
             FaultKind::TrayStuck,
             FaultKind::EraseFails}) {
        EXPECT_EQ(FindFaultKind(KeyOf(kind)), kind);
    }
    EXPECT_FALSE(FindFaultKind(u"rain"));
}

} // namespace velmora::virtualdrive::test
