// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/ImageFile.h"
#include "tests/platform/image/ChildProcess.h"
#include "tests/platform/image/ImageBench.h"

#include <linux/fiemap.h>
#include <linux/fs.h>
#include <sys/ioctl.h>

namespace velmora::test {

using namespace image;

namespace {

/// Bytes that the file takes on the disk.
std::uint64_t RoomOf(const std::string& path)
{
    struct stat status { };
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return static_cast<std::uint64_t>(status.st_blocks) * 512;
}

/// Bytes of the file that it shares with another one.
std::uint64_t SharedBytes(const std::string& path)
{
    constexpr std::uint32_t kMost = 64;
    alignas(fiemap) std::array<char, sizeof(fiemap) + kMost * sizeof(fiemap_extent)> room {};
    auto* map = reinterpret_cast<fiemap*>(room.data()); // NOLINT(*-reinterpret-cast)
    map->fm_length = FIEMAP_MAX_OFFSET;
    map->fm_flags = FIEMAP_FLAG_SYNC;
    map->fm_extent_count = kMost;
    const int file = ::open(path.c_str(), O_RDONLY);
    const bool told = ::ioctl(file, FS_IOC_FIEMAP, map) == 0;
    ::close(file);
    std::uint64_t bytes = 0;
    for (std::uint32_t i = 0; told && i < map->fm_mapped_extents; ++i) {
        const fiemap_extent& extent = map->fm_extents[i];
        bytes += (extent.fe_flags & FIEMAP_EXTENT_SHARED) != 0 ? extent.fe_length : 0;
    }
    return bytes;
}

/// Bytes without a pattern that a shifted copy would keep.
std::string Noise(std::size_t count)
{
    std::string bytes(count, '\0');
    std::uint32_t state = 20260309;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24U);
    }
    return bytes;
}

} // namespace

/// Sparse sources: their holes stay holes.
class SparseSourceTest : public ImageBench {
protected:
    SparseSourceTest() { Choose(true, false, false); }

    /// Makes a file of holes with some bytes at the places given, and adds it.
    void AddWithIslands(
        const std::string& name, std::uint64_t bytes, const std::vector<off_t>& islands) const
    {
        const std::string file = WriteSparse("source/" + name, bytes);
        const int descriptor = ::open(file.c_str(), O_WRONLY);
        for (const off_t at : islands) {
            EXPECT_EQ(::pwrite(descriptor, "island", 6, at), 6);
        }
        ::close(descriptor);
        EXPECT_TRUE(tree->AddFile(name, file));
    }

    std::string Path() const { return (folder / "image.iso").native(); }
};

TEST_F(SparseSourceTest, HolesTakeNoRoomInTheImage)
{
    AddSparse("HOLES", 500'000'000);
    ASSERT_TRUE(WriteImageFile(Plan(), Path()));

    EXPECT_EQ(std::filesystem::file_size(Path()), Plan().Bytes());
    EXPECT_LT(RoomOf(Path()), 1'000'000U);
}

TEST_F(SparseSourceTest, DataBetweenHolesAreAllThere)
{
    AddFile("BEFORE", Noise(5000));
    AddWithIslands("FRONT", 3'000'001, {0});
    AddWithIslands("MIDDLE", 9'437'184, {1'000'001, 4'194'300, 4'194'304 + 8192});
    AddWithIslands("REAR", 2'500'000, {2'500'000 - 6});
    AddFile("SOLID", Noise(1'500'000));
    AddFile("ZLAST", "last");

    for (const unsigned threads : {1U, 4U}) {
        ASSERT_TRUE(WriteImageFile(Plan(), Path(), {.threads = threads}));
        EXPECT_TRUE(ContentOf(Path()) == Bytes()) << threads;
    }
}

TEST_F(SparseSourceTest, OldContentsOfTheTargetDoNotShineThroughHoles)
{
    AddSparse("HOLES", 3'000'000);
    std::ofstream(Path()) << std::string(4'000'000, 'o');
    const int file = ::open(Path().c_str(), O_RDWR);
    ASSERT_TRUE(CopyTo(Plan(), file));
    ::close(file);

    EXPECT_EQ(ContentOf(Path()).find("ooo"), std::string::npos);
}

TEST_F(SparseSourceTest, HolesThatShrankAreToldAndThoseThatGrewAreNamed)
{
    AddSparse("HOLES", 3'000'000);
    const ImagePlan plan = Plan();
    const std::string source = (folder / "source/HOLES").native();
    for (const off_t size : {2'999'999, 0}) {
        ASSERT_EQ(::truncate(source.c_str(), size), 0);
        const auto written = WriteImageFile(plan, Path());
        ASSERT_FALSE(written) << size;
        EXPECT_EQ(written.Failure().kind, ErrorKind::FileChanged);
        EXPECT_EQ(written.Failure().path, source);
    }
    EXPECT_FALSE(std::filesystem::exists(Path()));

    ASSERT_EQ(::truncate(source.c_str(), 3'000'001), 0);
    const auto written = WriteImageFile(plan, Path());
    ASSERT_TRUE(written);
    EXPECT_EQ(written->changedFiles, std::set<std::string> {source});
    EXPECT_TRUE(ContentOf(Path()) == Bytes());
}

/// Source and image on a file system that shares extents, mounted for one child process.
class SharedExtentsTest : public ImageBench {
protected:
    SharedExtentsTest() { Choose(true, true, true); }

    /// Runs the work with an XFS at folder/disk; skips if that isn't possible.
    template <class Work> void OnXfs(Work&& work)
    {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "only root mounts an XFS";
        }
        const std::string file = folder.MakeFile("disk.xfs", 320 * 1024 * 1024).native();
        const std::string disk = folder.MakeFolder("disk").native();
        const int outcome = InChild([&] {
            const bool mounted = HideMounts() && RunProgram({"mkfs.xfs", "-q", file})
                && RunProgram({"mount", "-o", "loop", file, disk});
            return mounted ? work(disk) : kNotPossible;
        });
        if (outcome == kNotPossible) {
            GTEST_SKIP() << "no XFS can be made and mounted here";
        }
        EXPECT_EQ(outcome, kAsExpected);
    }
};

TEST_F(SharedExtentsTest, LargeFilesAreSharedAndTheImageIsTheStream)
{
    OnXfs([&](const std::string& disk) {
        std::filesystem::create_directory(disk + "/source");
        std::ofstream(disk + "/source/large") << Noise(3'000'000); // no multiple of a block
        std::ofstream(disk + "/source/blocks") << Noise(2'097'152);
        std::ofstream(disk + "/source/small") << Noise(1'000'000);
        ::sync();
        Scan(disk + "/source");
        if (!WriteImageFile(Plan(), disk + "/image.iso")) {
            return kUnexpected;
        }
        // 732 and 512 blocks of 4096 bytes; what is below a mebibyte is copied.
        const bool isShared = SharedBytes(disk + "/image.iso") == 732 * 4096 + 2'097'152;
        const bool isSame = ContentOf(disk + "/image.iso") == Bytes();
        return isShared && isSame ? kAsExpected : kUnexpected;
    });
}

TEST_F(SharedExtentsTest, WhatIsSharedOrAHoleNeedsNoRoom)
{
    OnXfs([&](const std::string& disk) {
        std::filesystem::create_directory(disk + "/source");
        std::ofstream(disk + "/source/large") << Noise(150'000'000);
        std::ofstream(disk + "/source/holes").close();
        std::filesystem::resize_file(disk + "/source/holes", 500'000'000);
        ::sync();
        Scan(disk + "/source"); // 650 MB beside which less than 170 MB are free
        const auto shared = WriteImageFile(Plan(), disk + "/image.iso");
        return shared ? kAsExpected : kUnexpected;
    });
}

TEST_F(SharedExtentsTest, FileThatWasRewrittenIsSharedAsItIsAndNamed)
{
    OnXfs([&](const std::string& disk) {
        std::filesystem::create_directory(disk + "/source");
        std::ofstream(disk + "/source/large") << Noise(3'000'000);
        std::ofstream(disk + "/source/quiet") << Noise(3'000'000);
        Scan(disk + "/source");
        const ImagePlan plan = Plan();
        Rewrite(disk + "/source/large", "other bytes");
        ::sync();
        const auto written = WriteImageFile(plan, disk + "/image.iso");
        const bool isNamed
            = written && written->changedFiles == std::set<std::string> {disk + "/source/large"};
        const bool isAsRead = ContentOf(disk + "/image.iso") == Bytes();
        return isNamed && isAsRead ? kAsExpected : kUnexpected;
    });
}

TEST_F(SharedExtentsTest, FileThatChangedIsToldAndNothingIsLeft)
{
    OnXfs([&](const std::string& disk) {
        std::filesystem::create_directory(disk + "/source");
        std::ofstream(disk + "/source/large") << Noise(3'000'000);
        Scan(disk + "/source");
        const ImagePlan plan = Plan();
        std::filesystem::resize_file(disk + "/source/large", 2'000'000);
        const auto written = WriteImageFile(plan, disk + "/image.iso");
        const bool told = !written && written.Failure().kind == ErrorKind::FileChanged
            && written.Failure().path == disk + "/source/large";
        const bool isGone = !std::filesystem::exists(disk + "/image.iso")
            && std::distance(std::filesystem::directory_iterator(disk), {}) == 1; // the source
        return told && isGone ? kAsExpected : kUnexpected;
    });
}

} // namespace velmora::test
