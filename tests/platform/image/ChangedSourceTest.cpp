// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/ImageBench.h"

#include <sys/stat.h>

#include <optional>
#include <set>

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

TEST_F(ChangedSourceTest, FileThatGrewIsRecordedAsItWasAndNamed)
{
    const std::string before = Bytes();
    Rewrite(File(), std::string(9000, 'x'));

    EXPECT_TRUE(Read(*stream, 0, stream->Size()) == before);
    EXPECT_EQ(stream->ChangedFiles(), std::set<std::string> {File()});
}

TEST_F(ChangedSourceTest, FileThatWasRewrittenIsRecordedAsItIsReadAndNamed)
{
    Rewrite(File(), std::string(5000, 'y'));

    EXPECT_NE(Read(*stream, 0, stream->Size()).find(std::string(5000, 'y')), std::string::npos);
    EXPECT_EQ(stream->ChangedFiles(), std::set<std::string> {File()});
}

TEST_F(ChangedSourceTest, FileThatWasRewrittenIsNamedEvenWithItsTimeSetBack)
{
    Rewrite(File(), std::string(5000, 'y'));
    Dated(File());

    Read(*stream, 0, stream->Size());
    EXPECT_EQ(stream->ChangedFiles(), std::set<std::string> {File()});
}

TEST_F(ChangedSourceTest, FileThatIsRewrittenBetweenTwoReadsIsNamed)
{
    const std::uint64_t begin = Bytes().find(std::string(100, 'x'));
    EXPECT_EQ(Read(*stream, begin, 100), std::string(100, 'x'));
    EXPECT_EQ(stream->ChangedFiles(), std::set<std::string> {});
    Rewrite(File(), std::string(5000, 'y'));

    EXPECT_EQ(Read(*stream, begin + 100, 4900), std::string(4900, 'y'));
    EXPECT_EQ(stream->ChangedFiles(), std::set<std::string> {File()});
}

TEST_F(ChangedSourceTest, FileThatStaysAsItIsIsNotNamed)
{
    Read(*stream, 0, stream->Size());
    EXPECT_EQ(stream->ChangedFiles(), std::set<std::string> {});
}

TEST_F(ChangedSourceTest, FileThatWasReplacedIsTold)
{
    Write("other", std::string(5000, 'x'));
    std::filesystem::rename(folder / "other", File());
    ExpectFailure(ErrorKind::FileReplaced);
}

TEST_F(ChangedSourceTest, FileThatIsReplacedBetweenTwoReadsIsTold)
{
    const std::uint64_t begin = Bytes().find(std::string(100, 'x'));
    EXPECT_EQ(Read(*stream, begin, 100), std::string(100, 'x'));
    WaitForTheClock(File());
    Write("other", std::string(5000, 'x'));
    std::filesystem::rename(folder / "other", File());

    std::string bytes(100, '\0');
    const Result<> read = stream->Read(begin + 100, std::as_writable_bytes(std::span(bytes)));
    ASSERT_FALSE(read);
    EXPECT_EQ(read.Failure().kind, ErrorKind::FileReplaced);
}

TEST_F(ChangedSourceTest, FileInAFolderThatWasReplacedIsTold)
{
    Write("twin/file", std::string(5000, 'x'));
    std::filesystem::rename(folder / "top/sub", folder / "away");
    std::filesystem::rename(folder / "twin", folder / "top/sub");
    ExpectFailure(ErrorKind::FileReplaced);
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
    ExpectFailure(ErrorKind::SpecialFile);
}

TEST_F(ChangedSourceTest, FileThatBecameAFolderIsTold)
{
    std::filesystem::remove(File());
    std::filesystem::create_directory(File());
    ExpectFailure(ErrorKind::FileReplaced);
}

TEST_F(ChangedSourceTest, FileThatBecameASocketIsToldAndNotOpened)
{
    std::filesystem::remove(File());
    ASSERT_EQ(::mknod(File().c_str(), S_IFSOCK | 0644U, 0), 0);
    ExpectFailure(ErrorKind::SpecialFile);
}

TEST_F(ChangedSourceTest, FileThatBecameALinkIsTold)
{
    std::filesystem::rename(File(), folder / "moved");
    std::filesystem::create_symlink(folder / "moved", File());
    ExpectFailure(ErrorKind::FileReplaced);
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

TEST_F(ChangedEmptyFileTest, EmptyFileThatGrewIsRecordedEmptyAndNamed)
{
    const std::string before = Bytes();
    ImageStream stream(Plan());
    Rewrite((folder / "top/a").native(), "now there is something in it");

    EXPECT_TRUE(ReadAll(stream));
    EXPECT_TRUE(bytes == before);
    EXPECT_EQ(stream.ChangedFiles(), std::set<std::string> {(folder / "top/a").native()});
}

TEST_F(ChangedEmptyFileTest, EmptyFileThatWasReplacedIsTold)
{
    ImageStream stream(Plan());
    Write("other", "");
    std::filesystem::rename(folder / "other", folder / "top/a");

    const Result<> read = ReadAll(stream);

    ASSERT_FALSE(read);
    EXPECT_EQ(read.Failure().kind, ErrorKind::FileReplaced);
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
