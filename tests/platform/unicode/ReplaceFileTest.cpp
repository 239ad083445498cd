// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/ReplaceFile.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace velmora::unicode {

namespace {

std::string ContentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class ReplaceFileTest : public testing::Test {
protected:
    std::ptrdiff_t Entries() const
    {
        return std::distance(std::filesystem::directory_iterator(folder.Path()), {});
    }

    test::TemporaryFolder folder;
};

TEST_F(ReplaceFileTest, ANameMayBeAnyBytes)
{
    const std::filesystem::path path = folder / "caf\xE9.txt";
    EXPECT_TRUE(ReplaceFile(path, "first"));
    EXPECT_TRUE(ReplaceFile(path, "second"));
    EXPECT_EQ(ContentOf(path), "second");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(ReplaceFileTest, ANewFileOfItsOwnNameIsTheUsersAlone)
{
    std::string path = folder / "part-XXXXXX";
    ASSERT_TRUE(WriteAnew(path, "text"));
    EXPECT_EQ(ContentOf(path), "text");
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
    std::string nowhere = folder / "none/part-XXXXXX";
    EXPECT_FALSE(WriteAnew(nowhere, "text"));
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(ReplaceFileTest, TheRightsOfTheFormerFileAreKept)
{
    const std::filesystem::path path = folder / "secret";
    std::ofstream(path) << "old";
    ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
    EXPECT_TRUE(ReplaceFile(path, "new"));
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
}

TEST_F(ReplaceFileTest, ALinkStaysAndItsFileIsReplaced)
{
    folder.MakeFolder("far");
    std::filesystem::create_symlink("far/file", folder / "link");
    std::ofstream(folder / "far/file") << "old";
    EXPECT_TRUE(ReplaceFile(folder / "link", "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(ContentOf(folder / "far/file"), "new");
}

TEST_F(ReplaceFileTest, ALinkThatLeadsNowhereStays)
{
    std::filesystem::create_symlink("none/file", folder / "link");
    EXPECT_FALSE(ReplaceFile(folder / "link", "new"));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
}

TEST_F(ReplaceFileTest, ANewFileHasTheUsersRights)
{
    const ::mode_t former = ::umask(0027);
    EXPECT_TRUE(ReplaceFile(folder / "file", "text"));
    EXPECT_EQ(::umask(former), 0027U);
    EXPECT_EQ(std::filesystem::status(folder / "file").permissions(), std::filesystem::perms(0640));
}

TEST_F(ReplaceFileTest, AFailureLeavesNothing)
{
    folder.MakeFolder("full");
    EXPECT_FALSE(ReplaceFile(folder / "full", "text"));
    EXPECT_EQ(errno, EISDIR);
    EXPECT_FALSE(ReplaceFile(folder / "none/file", "text"));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(Entries(), 1);
}

TEST_F(ReplaceFileTest, AProtectedFileStays)
{
    if (::geteuid() == 0) {
        GTEST_SKIP() << "root may write to every file";
    }
    const std::filesystem::path path = folder / "protected";
    std::ofstream(path) << "old";
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_FALSE(ReplaceFile(path, "new"));
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(ContentOf(path), "old");
}

TEST_F(ReplaceFileTest, APipeWithoutAReaderIsAFailure)
{
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(ReplaceFile(folder / "pipe", "text"));
    EXPECT_EQ(errno, ENXIO);
}

TEST_F(ReplaceFileTest, AFullDiskIsAFailure)
{
    EXPECT_FALSE(ReplaceFile("/dev/full", "text"));
    EXPECT_EQ(errno, ENOSPC);
}

} // namespace

} // namespace velmora::unicode
