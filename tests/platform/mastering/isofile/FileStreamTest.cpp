// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/FileStream.h"

#include "drive/PublishedCodes.h"

#include "tests/platform/mastering/ErrorNumbers.h"
#include "tests/platform/mastering/ImageBench.h"
#include "tests/support/Unprivileged.h"

#include <sys/stat.h>

#include <array>
#include <chrono>

namespace velmora::test {

using namespace std::chrono_literals;
using imapi::FileStreamMode;
using mastering::SHCreateStreamOnFile;
using FileStreamTest = ImageBench;

namespace {

constexpr quint64 kFarBeyondTheEnd = 1'000'000'000'000;

std::string ReadText(imapi::IStream& stream, std::size_t most)
{
    std::string text(most, '\0');
    text.resize(stream.Read(std::as_writable_bytes(std::span(text))));
    return text;
}

std::string ContentOf(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteText(imapi::IStream& stream, const std::string& text)
{
    stream.Write(std::as_bytes(std::span(text)));
}

} // namespace

TEST_F(FileStreamTest, AFileIsReadFromAnyPlaceToItsEnd)
{
    const imapi::StreamRef stream = Open(Write("a", "0123456789"));

    ASSERT_TRUE(stream);
    EXPECT_EQ(stream->Size(), 10U);
    EXPECT_EQ(ReadText(*stream, 4), "0123");
    EXPECT_EQ(ReadText(*stream, 100), "456789");
    EXPECT_EQ(ReadText(*stream, 100), "");
    stream->Seek(8);
    EXPECT_EQ(ReadText(*stream, 1), "8");
    stream->Seek(11);
    EXPECT_EQ(ReadText(*stream, 1), "");
}

TEST_F(FileStreamTest, WhatIsNoFileOpensNoStream)
{
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);

    EXPECT_FALSE(Open(folder / "missing"));
    EXPECT_FALSE(Open(folder.MakeFolder("folder")));
    EXPECT_FALSE(Open(folder / "pipe")); // and nobody waits for a writer
    EXPECT_FALSE(Open("/dev/null"));
    EXPECT_FALSE(SHCreateStreamOnFile({}, FileStreamMode::Read));
}

TEST_F(FileStreamTest, ALinkLeadsToItsFile)
{
    Write("a", "content");
    std::filesystem::create_symlink("a", folder / "link");

    const imapi::StreamRef stream = Open(folder / "link");

    ASSERT_TRUE(stream);
    EXPECT_EQ(ReadText(*stream, 100), "content");
}

TEST_F(FileStreamTest, ALinkToNoFileIsAStreamThatCannotBeRead)
{
    for (const char* target : {"nowhere", "."}) {
        std::filesystem::remove(folder / "link");
        std::filesystem::create_symlink(target, folder / "link");

        const imapi::StreamRef stream = Open(folder / "link");

        ASSERT_TRUE(stream) << target;
        EXPECT_EQ(stream->File()->path.Bytes(), (folder / "link").native());
        EXPECT_EQ(ErrorNumberOf([&] { ReadText(*stream, 1); }), drive::hresult::kStreamReadFault);
    }
}

TEST_F(FileStreamTest, ANameThatIsNoUtf8Opens)
{
    const imapi::StreamRef stream = Open(Write("caf\xE9", "latin"));

    ASSERT_TRUE(stream);
    EXPECT_EQ(ReadText(*stream, 100), "latin");
}

TEST_F(FileStreamTest, AFileThatGrowsIsReadAsItWasAndTold)
{
    const std::filesystem::path file = Write("a", "0123456789");
    const imapi::StreamRef stream = Open(file);
    EXPECT_EQ(ReadText(*stream, 4), "0123");
    EXPECT_EQ(stream->ChangedSources(), QList<text::ProgramPath>());

    std::ofstream(file, std::ios::app) << "more";

    EXPECT_EQ(stream->Size(), 10U);
    EXPECT_EQ(ReadText(*stream, 100), "456789");
    EXPECT_EQ(stream->ChangedSources(), QList {ProgramPath(file)});
}

TEST_F(FileStreamTest, AFileThatIsRewrittenIsReadAndTold)
{
    const std::filesystem::path file = Write("a", "0123456789");
    const imapi::StreamRef stream = Open(file);
    std::filesystem::last_write_time(file, std::filesystem::file_time_type() + 1h);
    std::fstream(file).seekp(5).put('X');

    EXPECT_EQ(ReadText(*stream, 100), "01234X6789");
    EXPECT_EQ(stream->ChangedSources(), QList {ProgramPath(file)});
}

TEST_F(FileStreamTest, AFileThatIsShorterNowFailsByName)
{
    const std::filesystem::path file = Write("a", "0123456789");
    const imapi::StreamRef stream = Open(file);
    EXPECT_EQ(ReadText(*stream, 4), "0123");
    std::filesystem::resize_file(file, 6);

    EXPECT_EQ(ErrorNumberOf([&] { ReadText(*stream, 1); }), kFileChanged);
    try {
        ReadText(*stream, 1);
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_TRUE(failure.Description().contains(QString::fromStdString(file.native())));
    }
}

TEST_F(FileStreamTest, AFileThatIsGoneOrReplacedFails)
{
    const std::filesystem::path file = Write("a", "0123456789");
    const imapi::StreamRef gone = Open(file);
    std::filesystem::remove(file);
    EXPECT_EQ(ErrorNumberOf([&] { ReadText(*gone, 1); }), kFileNotFound);

    const imapi::StreamRef replaced = Open(Write("a", "0123456789"));
    std::filesystem::rename(Write("b", "0123456789"), file);
    EXPECT_EQ(ErrorNumberOf([&] { ReadText(*replaced, 1); }), kFileChanged);
}

TEST_F(FileStreamTest, AnotherNameForAFileIsNoHarm)
{
    const std::filesystem::path file = Write("a", "0123456789");
    const imapi::StreamRef stream = Open(file);
    std::filesystem::create_hard_link(file, folder / "b");

    EXPECT_EQ(ReadText(*stream, 100), "0123456789");
}

TEST_F(FileStreamTest, AStreamForWritingMakesItsFileOrEmptiesIt)
{
    const std::filesystem::path file = Write("old", "long old content");
    for (const char* name : {"new", "old"}) {
        const text::ProgramPath path = ProgramPath(folder / name);
        imapi::StreamRef stream = SHCreateStreamOnFile(path, FileStreamMode::CreateWrite);
        ASSERT_TRUE(stream);
        WriteText(*stream, "abc");
        stream->Seek(1);
        WriteText(*stream, "X");
        stream.reset();
        EXPECT_EQ(ContentOf(folder / name), "aXc");
    }
}

TEST_F(FileStreamTest, WhatCannotBeMadeOpensNoStream)
{
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const std::filesystem::path& path :
        {folder / "missing/disc.iso", folder.MakeFolder("folder"), folder / "pipe"}) {
        EXPECT_FALSE(SHCreateStreamOnFile(ProgramPath(path), FileStreamMode::CreateWrite)) << path;
    }
}

TEST_F(FileStreamTest, AFolderWithoutWriteAccessTakesNoFile)
{
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder.MakeFolder("closed"), std::filesystem::perms(0555));
    const text::ProgramPath path = ProgramPath(folder / "closed/disc.iso");
    const Unprivileged user;

    EXPECT_FALSE(SHCreateStreamOnFile(path, FileStreamMode::CreateWrite));
}

TEST_F(FileStreamTest, AStreamForReadingCannotBeWritten)
{
    const imapi::StreamRef stream = Open(Write("a", "content"));

    EXPECT_EQ(ErrorNumberOf([&] { WriteText(*stream, "x"); }), kAccessDenied);
    EXPECT_EQ(ContentOf(folder / "a"), "content");
}

TEST_F(FileStreamTest, ACopyEndsWithItsSource)
{
    const imapi::StreamRef source = Open(folder.MakeFile("large", 3'000'001));
    const text::ProgramPath path = ProgramPath(folder / "copy");
    const imapi::StreamRef copy = SHCreateStreamOnFile(path, FileStreamMode::CreateWrite);

    EXPECT_EQ(source->CopyTo(copy, kFarBeyondTheEnd), 3'000'001U);
    EXPECT_EQ(std::filesystem::file_size(folder / "copy"), 3'000'001U);
}

TEST_F(FileStreamTest, ACopyTakesTheBytesAskedForFromWhereBothStreamsStand)
{
    const imapi::StreamRef source = Open(Write("a", "0123456789"));
    const text::ProgramPath path = ProgramPath(folder / "copy");
    const imapi::StreamRef copy = SHCreateStreamOnFile(path, FileStreamMode::CreateWrite);
    WriteText(*copy, "> ");
    source->Seek(3);

    EXPECT_EQ(source->CopyTo(copy, 4), 4U);
    EXPECT_EQ(ContentOf(folder / "copy"), "> 3456");
    EXPECT_EQ(source->CopyTo(copy, 0), 0U);
}

TEST_F(FileStreamTest, ACopyToNothingIsAnInvalidPointer)
{
    const imapi::StreamRef source = Open(Write("a", "content"));

    EXPECT_EQ(ErrorNumberOf([&] { source->CopyTo(nullptr, 1); }), kInvalidPointer);
}

TEST_F(FileStreamTest, AFullDiskSaysSo)
{
    const imapi::StreamRef full
        = SHCreateStreamOnFile(u"\\dev\\full"_path, FileStreamMode::CreateWrite);
    ASSERT_TRUE(full);
    const imapi::StreamRef source = Open(Write("a", "content"));

    EXPECT_EQ(ErrorNumberOf([&] { WriteText(*full, "x"); }), kMediumFull);
    EXPECT_EQ(ErrorNumberOf([&] { source->CopyTo(full, kFarBeyondTheEnd); }), kMediumFull);
}

} // namespace velmora::test
