// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/ImageBench.h"

#include <sys/stat.h>

#include <optional>

namespace velmora::test {

using namespace image;

/// One folder with the file "sub/file" of 5,000 bytes, planned and then changed.
class ChangedSourceTest : public ImageBench {
protected:
    ChangedSourceTest()
    {
        Choose(true, true, true);
        Write("top/sub/file", std::string(5000, 'x'));
        Write("top/sub/next", "next");
        Scan(folder / "top");
        stream.emplace(Plan());
    }

    std::string File() const { return (folder / "top/sub/file").native(); }

    void ExpectFailure(ErrorKind kind, int systemError = 0)
    {
        std::string bytes(stream->Size(), '\0');
        const Result<> read = stream->Read(0, std::as_writable_bytes(std::span(bytes)));
        ASSERT_FALSE(read);
        EXPECT_EQ(read.Failure().kind, kind);
        EXPECT_EQ(read.Failure().path, File());
        EXPECT_EQ(read.Failure().systemError, systemError);
    }

    std::optional<ImageStream> stream;
};

TEST_F(ChangedSourceTest, FileThatShrankIsTold)
{
    for (const off_t size : {4999, 4096, 1, 0}) {
        ASSERT_EQ(::truncate(File().c_str(), size), 0);
        ExpectFailure(ErrorKind::FileChanged);
    }
}

TEST_F(ChangedSourceTest, FileThatGrewIsTold)
{
    ASSERT_EQ(::truncate(File().c_str(), 5001), 0);
    ExpectFailure(ErrorKind::FileChanged);
}

TEST_F(ChangedSourceTest, FileThatGrewIsToldWhereTheReadEndsWithIt)
{
    const std::uint64_t begin = Bytes().find(std::string(100, 'x'));
    ASSERT_EQ(::truncate(File().c_str(), 9000), 0);
    std::string bytes(5000, '\0');

    // Its first part can't show the growth; its last byte does.
    EXPECT_TRUE(stream->Read(begin, std::as_writable_bytes(std::span(bytes).first(4999))));
    EXPECT_FALSE(stream->Read(begin, std::as_writable_bytes(std::span(bytes))));
    EXPECT_FALSE(stream->Read(begin + 4999, std::as_writable_bytes(std::span(bytes).first(1))));
}

TEST_F(ChangedSourceTest, FileThatVanishedIsTold)
{
    std::filesystem::remove(File());
    ExpectFailure(ErrorKind::NotFound, ENOENT);
}

TEST_F(ChangedSourceTest, FileWhoseFolderVanishedIsTold)
{
    std::filesystem::remove_all(folder / "top/sub");
    ExpectFailure(ErrorKind::NotFound, ENOENT);
}

TEST_F(ChangedSourceTest, FileThatBecameAPipeIsToldWithoutWaiting)
{
    std::filesystem::remove(File());
    ASSERT_EQ(::mkfifo(File().c_str(), 0644), 0);
    ExpectFailure(ErrorKind::FileUnreadable, ESPIPE);
}

TEST_F(ChangedSourceTest, FileThatBecameAFolderIsTold)
{
    std::filesystem::remove(File());
    std::filesystem::create_directory(File());
    ExpectFailure(ErrorKind::FileUnreadable, EISDIR);
}

TEST_F(ChangedSourceTest, FileThatBecameALinkIsReadThroughIt)
{
    std::filesystem::rename(File(), folder / "moved");
    std::filesystem::create_symlink(folder / "moved", File());
    std::string bytes(stream->Size(), '\0');
    EXPECT_TRUE(stream->Read(0, std::as_writable_bytes(std::span(bytes))));
    EXPECT_NE(bytes.find(std::string(5000, 'x')), std::string::npos);
}

TEST_F(ChangedSourceTest, StructuresAreReadWhateverBecameOfTheFiles)
{
    const std::string before = Bytes();
    std::filesystem::remove_all(folder / "top");
    std::string bytes(257 * kSector, '\0');

    EXPECT_TRUE(stream->Read(0, std::as_writable_bytes(std::span(bytes))));
    EXPECT_TRUE(bytes == before.substr(0, bytes.size()));
}

TEST_F(ChangedSourceTest, OtherFilesAreReadOn)
{
    const std::uint64_t next = Bytes().find(std::string("next\0\0", 6));
    std::filesystem::remove(File());

    EXPECT_EQ(Read(*stream, next, 4), "next");
}

TEST_F(ChangedSourceTest, FileThatCameBackIsRead)
{
    const std::string before = Bytes();
    std::filesystem::rename(File(), folder / "away");
    ExpectFailure(ErrorKind::NotFound, ENOENT);
    std::filesystem::rename(folder / "away", File());

    EXPECT_TRUE(Read(*stream, 0, before.size()) == before);
}

/// A file that was empty has nothing to be read, and still may have grown.
class ChangedEmptyFileTest : public ImageBench {
protected:
    ChangedEmptyFileTest()
    {
        Write("top/a", "");
        Write("top/b", "b");
        Scan(folder / "top");
    }

    std::string bytes;
    Result<> ReadAll(ImageStream& stream)
    {
        bytes.resize(stream.Size());
        return stream.Read(0, std::as_writable_bytes(std::span(bytes)));
    }
};

TEST_F(ChangedEmptyFileTest, EmptyFileThatGrewIsTold)
{
    ImageStream stream(Plan());
    Write("top/a", "now there is something in it");

    const Result<> read = ReadAll(stream);

    ASSERT_FALSE(read);
    EXPECT_EQ(read.Failure().kind, ErrorKind::FileChanged);
    EXPECT_EQ(read.Failure().path, (folder / "top/a").native());
}

TEST_F(ChangedEmptyFileTest, EmptyFileThatVanishedIsTold)
{
    ImageStream stream(Plan());
    std::filesystem::remove(folder / "top/a");

    const Result<> read = ReadAll(stream);

    ASSERT_FALSE(read);
    EXPECT_EQ(read.Failure().kind, ErrorKind::NotFound);
}

} // namespace velmora::test
