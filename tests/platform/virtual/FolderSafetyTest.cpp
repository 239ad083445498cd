// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

#include "tests/platform/virtual/FullDisk.h"
#include "tests/support/Unprivileged.h"
#include "virtual/VirtualDriveSource.h"

#include <sys/stat.h>

#include <iterator>

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using velmora::test::ErrorNumberOf;
namespace fs = std::filesystem;

namespace {

constexpr const char* kPhotos = "the only photos of the wedding";

std::string ContentOf(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Something other than a file in place of a description or a disc.
enum class Oddity : std::uint8_t { Pipe, Socket, Folder, Zeros };

void Put(Oddity what, const fs::path& place)
{
    fs::remove_all(place);
    switch (what) {
    case Oddity::Pipe:
        ASSERT_EQ(mkfifo(place.c_str(), 0600), 0);
        break;
    case Oddity::Socket:
        ASSERT_EQ(mknod(place.c_str(), S_IFSOCK | 0600, 0), 0);
        break;
    case Oddity::Folder:
        fs::create_directory(place);
        break;
    case Oddity::Zeros:
        fs::create_symlink("/dev/zero", place);
        break;
    }
}

constexpr std::array kOddities {Oddity::Pipe, Oddity::Socket, Oddity::Folder, Oddity::Zeros};

} // namespace

class FolderSafetyTest : public VirtualBench {
protected:
    fs::path In(const std::string& name) const { return folder / ("recorders/A/" + name); }
    static void PutPhotos(const fs::path& file) { std::ofstream(file) << kPhotos; }
    std::vector<std::string> FilesOf(const fs::path& place) const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(place)) {
            names.push_back(entry.path().filename());
        }
        std::ranges::sort(names);
        return names;
    }
    /// Discs are inserted, written, erased and removed, in the recorder of that name.
    void UseAllWays(const QString& name)
    {
        VirtualDrive own(recorders.Folder(name), clock, pump);
        for (const QStringView key : {u"cd-rw", u"dvd-rw-ow", u"dvd+rw", u"bd-re"}) {
            for (const bool full : {false, true}) {
                recorders.Insert(name, {.medium = FindMedium(key)}, clock);
                own.Write(Order(20), {});
                own.Erase(full, {});
                recorders.Insert(name, {.medium = FindMedium(key)}, clock);
            }
        }
        recorders.TakeOut(name);
    }
    void Describe(const QByteArray& text) const
    {
        std::ofstream(In("recorder.json")) << text.toStdString();
    }
};

TEST_F(FolderSafetyTest, FilesOfOthersAreLeftAlone)
{
    const std::vector<std::string> names {
        "disc-1.iso", "disc-3.iso", "disc-photos.iso", "disc-.iso", "photos.jpg"};
    for (const std::string& name : names) {
        PutPhotos(In(name));
    }
    UseAllWays(u"A"_s);
    for (const std::string& name : names) {
        EXPECT_EQ(ContentOf(In(name)), kPhotos) << name;
    }
    EXPECT_EQ(FilesOf(In("")).size(), names.size() + 2) << "and nothing of ours is left over";
}

TEST_F(FolderSafetyTest, FilesInAFolderThatALinkLeadsToAreLeftAlone)
{
    const fs::path album = folder.MakeFolder("album");
    PutPhotos(album / "disc-photos.iso");
    PutPhotos(album / "disc-2.iso");
    fs::create_symlink(album, folder / "recorders/L");
    UseAllWays(u"L"_s);
    EXPECT_EQ(ContentOf(album / "disc-photos.iso"), kPhotos);
    EXPECT_EQ(ContentOf(album / "disc-2.iso"), kPhotos);
}

TEST_F(FolderSafetyTest, OnlyAFileOfSectorsCanBeADisc)
{
    for (const char* name : {"recorder.json",
             "recorder.json.new",
             "lock",
             "disc-photos.iso",
             "disc-.iso",
             "disc-0.iso",
             "disc-01.iso",
             "disc--1.iso",
             "disc-1.iso.gz",
             "disc-1234567890.iso",
             "a/disc-1.iso",
             "../disc-1.iso"}) {
        EXPECT_FALSE(IsSectorFileName(QString::fromLatin1(name))) << name;
        Describe(QByteArray(R"({"version": 1, "disc": {"type": "cd-rw", "sectorFile": ")") + name
            + "\"}}");
        EXPECT_EQ(ExamineError(), Seen(drive::hresult::kInvalidResponse)) << name;
        Describe(QByteArray(R"({"version": 1, "spareFiles": [")") + name + "\"]}");
        EXPECT_EQ(ErrorNumberOf([&] { Insert(u"cd-rw"); }), Seen(drive::hresult::kInvalidResponse))
            << name;
    }
    EXPECT_TRUE(IsSectorFileName(u"disc-1.iso"));
    EXPECT_TRUE(IsSectorFileName(u"disc-120.iso"));
}

TEST_F(FolderSafetyTest, SectorsThatAProcessLeftBehindGoWithTheNextDisc)
{
    PutPhotos(In("disc-6.iso"));
    std::ofstream(In("disc-5.iso")) << "half a disc";
    Change([](Description& now) { now.spareFiles = {u"disc-5.iso"_s, u"disc-7.iso"_s}; });
    Insert(u"cd-r");
    EXPECT_FALSE(fs::exists(In("disc-5.iso")));
    EXPECT_EQ(ContentOf(In("disc-6.iso")), kPhotos);
    EXPECT_TRUE(Now().spareFiles.isEmpty());
}

TEST_F(FolderSafetyTest, TheDiscInTheDriveIsNeverSpare)
{
    Insert(u"cd-r");
    Change([](Description& now) { now.spareFiles = {now.disc->sectorFile}; });
    EXPECT_TRUE(Now().spareFiles.isEmpty());
}

TEST_F(FolderSafetyTest, ALinkInADiscsPlaceIsNotFollowed)
{
    Insert(u"dvd+rw");
    PutPhotos(folder / "photos.iso");
    const fs::path sectors = recorders.Folder(u"A"_s).SectorPath(Now().disc->sectorFile);
    fs::remove(sectors);
    fs::create_symlink(folder / "photos.iso", sectors);
    EXPECT_NE(Write(10), 0);
    EXPECT_NE(ErrorNumberOf([&] { drive.Erase(false, {}); }), 0);
    recorders.TakeOut(u"A"_s);
    EXPECT_EQ(ContentOf(folder / "photos.iso"), kPhotos);
    EXPECT_FALSE(fs::is_symlink(sectors));
}

TEST_F(FolderSafetyTest, WhatIsNoDescriptionIsRefusedAtOnce)
{
    VirtualDriveSource source(recorders, clock, pump);
    for (const Oddity oddity : kOddities) {
        Put(oddity, In("recorder.json"));
        EXPECT_EQ(ExamineError(), Seen(drive::hresult::kInvalidResponse));
        EXPECT_EQ(
            ErrorNumberOf([&] { Now(); }), Seen(drive::hresult::kInvalidResponse)); // show, list
        EXPECT_EQ(ErrorNumberOf([&] { recorders.TakeOut(u"A"_s); }),
            Seen(drive::hresult::kInvalidResponse));
        EXPECT_EQ(source.Ids(), QStringList {u"virtual:A"_s}) << "it is told of when it is used";
    }
}

TEST_F(FolderSafetyTest, AHugeDescriptionIsNotRead)
{
    fs::resize_file(In("recorder.json"), std::uintmax_t {1} << 40U);
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kInvalidResponse));
    try {
        Now();
        ADD_FAILURE() << "it was read";
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_EQ(failure.Description(),
            u"La description du graveur virtuel est illisible : le fichier est trop grand."_s);
    }
}

TEST_F(FolderSafetyTest, WhatIsNoFileOfSectorsIsNotWaitedFor)
{
    Insert(u"dvd+rw");
    const fs::path sectors = recorders.Folder(u"A"_s).SectorPath(Now().disc->sectorFile);
    for (const Oddity oddity : kOddities) {
        Put(oddity, sectors);
        EXPECT_EQ(ExamineError(), Seen(drive::hresult::kImportReadFailure));
        EXPECT_EQ(Write(10), Seen(drive::hresult::kWriteError));
    }
}

TEST_F(FolderSafetyTest, ALockThatIsAPipeIsNotWaitedFor)
{
    Put(Oddity::Pipe, In("lock"));
    Insert(u"cd-r");
    EXPECT_EQ(Write(10), 0);
}

TEST_F(FolderSafetyTest, WhatLiesInTheWayOfANewDescriptionIsNotWrittenTo)
{
    PutPhotos(folder / "photos");
    fs::create_symlink(folder / "photos", In("recorder.json.new"));
    recorders.Eject(u"A"_s);
    EXPECT_TRUE(Now().trayOpen);
    EXPECT_EQ(ContentOf(folder / "photos"), kPhotos);
    Put(Oddity::Pipe, In("recorder.json.new"));
    recorders.Close(u"A"_s, clock);
    EXPECT_FALSE(Now().trayOpen);
    EXPECT_FALSE(fs::exists(In("recorder.json.new")));
}

TEST_F(FolderSafetyTest, ADrivesNameHoldsNothingThatATerminalObeys)
{
    Describe(R"({"version": 1, "drive": {"vendor": "\u001b]0;x\u0007ACME\u009b2J",
        "product": "A\nB\u202eC\u007f", "revision": ")"
        + QByteArray(5000, '1') + "\"}}");
    const drive::DriveFacts facts = drive.Identify();
    EXPECT_EQ(facts.vendor, u"]0;xACME2J"_s);
    EXPECT_EQ(facts.product, u"ABC"_s);
    EXPECT_EQ(facts.revision, QString(40, u'1'));
}

TEST_F(FolderSafetyTest, AFullDiskLeavesTheRecorderAsItWas)
{
    Insert(u"dvd+rw", DiscPreset::Closed);
    const std::vector<std::string> before = FilesOf(In(""));
    {
        const FullDisk full;
        EXPECT_EQ(ErrorNumberOf([&] { recorders.Eject(u"A"_s); }), drive::hresult::kFail);
        EXPECT_NE(ErrorNumberOf([&] { Insert(u"cd-r"); }), 0);
        EXPECT_NE(ErrorNumberOf([&] { Insert(u"cd-r", DiscPreset::Closed); }), 0);
        EXPECT_NE(ErrorNumberOf([&] { drive.Erase(true, {}); }), 0);
    }
    EXPECT_EQ(FilesOf(In("")), before);
    EXPECT_FALSE(Now().trayOpen);
    EXPECT_EQ(Now().disc->medium->key, u"dvd+rw");
}

TEST_F(FolderSafetyTest, ARecorderThatCantBeMadeLeavesNothing)
{
    const Recorders others((folder / "data/velmora/recorders").string());
    {
        const FullDisk full;
        EXPECT_EQ(ErrorNumberOf([&] { others.Create(u"B"_s); }), drive::hresult::kFail);
        EXPECT_EQ(ErrorNumberOf([&] { recorders.Create(u"B"_s); }), drive::hresult::kFail);
    }
    EXPECT_FALSE(fs::exists(folder / "data"));
    EXPECT_FALSE(fs::exists(folder / "recorders/B"));
    EXPECT_EQ(ErrorNumberOf([&] { recorders.Create(u"A"_s); }), 58);
    for (const char* place : {"/dev/null/recorders", "/proc/none/recorders", "/proc"}) {
        EXPECT_EQ(ErrorNumberOf([&] { Recorders(place).Create(u"B"_s); }), 75) << place;
    }
    EXPECT_EQ(recorders.Names(), QStringList {u"A"_s});
    others.Create(u"B"_s);
    EXPECT_EQ(others.Names(), QStringList {u"B"_s});
}

TEST_F(FolderSafetyTest, ARecorderIsRemovedWithItsDisc)
{
    Insert(u"dvd+rw", DiscPreset::Closed);
    std::ofstream(In("disc-9.iso")) << "half a disc";
    Change([](Description& now) { now.spareFiles = {u"disc-9.iso"_s}; });
    std::ofstream(In("recorder.json.new")) << "half a description";
    recorders.Delete(u"A"_s);
    EXPECT_FALSE(fs::exists(In("")));
    EXPECT_EQ(ErrorNumberOf([&] { drive.Identify(); }), Seen(drive::hresult::kDeviceGone));
    EXPECT_EQ(ErrorNumberOf([&] { recorders.Delete(u"A"_s); }), 76);
}

TEST_F(FolderSafetyTest, ARecorderInUseIsNotRemoved)
{
    drive.Lock(false);
    EXPECT_EQ(
        ErrorNumberOf([&] { recorders.Delete(u"A"_s); }), Seen(drive::hresult::kRecorderLocked));
    drive.Unlock();
    recorders.Delete(u"A"_s);
    EXPECT_TRUE(recorders.Names().isEmpty());
}

TEST_F(FolderSafetyTest, ARecorderThatHoldsFilesOfOthersIsNotRemoved)
{
    Insert(u"cd-r");
    PutPhotos(In("disc-photos.iso"));
    const std::vector<std::string> before = FilesOf(In(""));
    try {
        recorders.Delete(u"A"_s);
        ADD_FAILURE() << "it was removed";
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), 75);
        EXPECT_TRUE(failure.Description().endsWith(u"ailleurs : « disc-photos.iso »."))
            << failure.Description().toStdString();
    }
    EXPECT_EQ(FilesOf(In("")), before);
}

TEST_F(FolderSafetyTest, ARecorderThatCantBeListedIsNotRemoved)
{
    Insert(u"cd-r");
    fs::permissions(folder.Path(), fs::perms::all);
    fs::permissions(folder / "recorders", fs::perms::all);
    fs::permissions(In("lock"), fs::perms::all);
    using fs::perms;
    const perms readers = perms::owner_read | perms::group_read | perms::others_read;
    fs::permissions(In(""), perms::all & ~readers);
    {
        const velmora::test::Unprivileged unprivileged;
        EXPECT_EQ(
            ErrorNumberOf([&] { recorders.Delete(u"A"_s); }), Seen(drive::hresult::kAccessDenied));
    }
    fs::permissions(In(""), fs::perms::all);
    EXPECT_TRUE(Now().disc);
    EXPECT_TRUE(fs::exists(recorders.Folder(u"A"_s).SectorPath(Now().disc->sectorFile)));
}

TEST_F(FolderSafetyTest, OfALinkedRecorderTheFolderStays)
{
    const fs::path place = folder.MakeFolder("elsewhere");
    fs::create_symlink(place, folder / "recorders/L");
    recorders.Insert(u"L"_s, {.medium = FindMedium(u"cd-r")}, clock);
    recorders.Delete(u"L"_s);
    EXPECT_TRUE(FilesOf(place).empty());
    EXPECT_EQ(recorders.Names(), QStringList {u"A"_s});
}

TEST_F(FolderSafetyTest, ABrokenRecorderCanBeRemoved)
{
    for (const Oddity oddity : {Oddity::Pipe, Oddity::Socket, Oddity::Zeros}) {
        Put(oddity, In("recorder.json"));
        recorders.Delete(u"A"_s);
        EXPECT_FALSE(fs::exists(In("")));
        recorders.Create(u"A"_s);
    }
}

} // namespace velmora::virtualdrive::test
