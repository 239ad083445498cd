// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/ImageBench.h"

#include "tests/platform/mastering/ErrorNumbers.h"
#include "tests/support/FileChanges.h"

namespace velmora::test {

using imapi::FileStreamMode;
using mastering::SHCreateStreamOnFile;

namespace {

constexpr quint64 kMoreThanThereIs = 1'000'000'000'000;

std::string ImageFileText(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

/// The result of an image with one small and one larger file.
class ImageResultTest : public ImageBench {
protected:
    ImageResultTest()
    {
        Write("tree/small.txt", "small content");
        Write("tree/large.bin", std::string(300'000, 'L'));
        AddTree("tree");
        result = image->CreateResultImage();
        stream = result->ImageStream();
        bytes = BytesOf(*result);
        stream->Seek(0);
    }

    imapi::StreamRef NewFile(const std::string& name) const
    {
        return SHCreateStreamOnFile(ProgramPath(folder / name), FileStreamMode::CreateWrite);
    }

    imapi::ImageResultRef result;
    imapi::StreamRef stream;
    std::string bytes;
};

TEST_F(ImageResultTest, TheStreamIsAsLongAsTheBlocks)
{
    EXPECT_EQ(result->BlockSize(), 2048);
    EXPECT_EQ(stream->Size(), 2048ULL * static_cast<quint64>(result->TotalBlocks()));
    EXPECT_EQ(bytes.substr(32769, 5), "CD001");
    EXPECT_NE(bytes.find("small content"), std::string::npos);
}

TEST_F(ImageResultTest, EveryCallGivesTheSameStream) { EXPECT_EQ(result->ImageStream(), stream); }

TEST_F(ImageResultTest, AnyRangeReadsAsInTheWhole)
{
    for (const quint64 at : {quint64 {0},
             quint64 {32'769},
             quint64 {33'000},
             stream->Size() - 5000,
             stream->Size() - 1}) {
        std::string part(5000, '\0');
        stream->Seek(at);
        part.resize(stream->Read(std::as_writable_bytes(std::span(part))));
        EXPECT_EQ(part, bytes.substr(static_cast<std::size_t>(at), 5000)) << at;
    }
}

TEST_F(ImageResultTest, BehindTheEndThereIsNothing)
{
    std::string part(10, '\0');
    for (const quint64 at : {stream->Size(), stream->Size() + 1}) {
        stream->Seek(at);
        EXPECT_EQ(stream->Read(std::as_writable_bytes(std::span(part))), 0U);
    }
}

TEST_F(ImageResultTest, TheFilesInARangeAreNamedAsOnTheDisc)
{
    const quint64 place = bytes.find("small content");
    const auto files = stream->FilesBetween(place + 2, place + 2048);
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].path, u"tree\\small.txt"_disc);
    EXPECT_EQ(files[0].firstByte, 2U);
    EXPECT_TRUE(stream->FilesBetween(0, 2048).empty());
}

TEST_F(ImageResultTest, TheStreamCannotBeWritten)
{
    EXPECT_EQ(ErrorNumberOf([&] { stream->Write({}); }), kAccessDenied);
}

TEST_F(ImageResultTest, ACopyToAFileIsTheWholeImage)
{
    EXPECT_EQ(stream->CopyTo(NewFile("disc.iso"), kMoreThanThereIs), stream->Size());

    EXPECT_EQ(ImageFileText(folder / "disc.iso"), bytes);
}

TEST_F(ImageResultTest, ACopyLeavesBothStreamsAtTheirEnd)
{
    const imapi::StreamRef file = NewFile("disc.iso");
    stream->CopyTo(file, kMoreThanThereIs);

    EXPECT_EQ(stream->CopyTo(file, kMoreThanThereIs), 0U);
    EXPECT_EQ(std::filesystem::file_size(folder / "disc.iso"), stream->Size());
}

TEST_F(ImageResultTest, ACopyOfAPartIsThatPart)
{
    stream->Seek(32'768);

    EXPECT_EQ(stream->CopyTo(NewFile("part"), 2048), 2048U);

    EXPECT_EQ(ImageFileText(folder / "part"), bytes.substr(32'768, 2048));
}

TEST_F(ImageResultTest, ACopyBehindOtherBytesKeepsThem)
{
    const imapi::StreamRef file = NewFile("disc.iso");
    const std::string head = "head";
    file->Write(std::as_bytes(std::span(head)));

    EXPECT_EQ(stream->CopyTo(file, kMoreThanThereIs), stream->Size());

    EXPECT_EQ(ImageFileText(folder / "disc.iso"), head + bytes);
}

TEST_F(ImageResultTest, ACopyToNothingIsAnInvalidPointer)
{
    EXPECT_EQ(ErrorNumberOf([&] { stream->CopyTo(nullptr, 1); }), kInvalidPointer);
}

TEST_F(ImageResultTest, AFullDiskFailsTheCopy)
{
    const imapi::StreamRef full
        = SHCreateStreamOnFile(u"\\dev\\full"_path, FileStreamMode::CreateWrite);

    EXPECT_EQ(ErrorNumberOf([&] { stream->CopyTo(full, kMoreThanThereIs); }), kMediumFull);
}

TEST_F(ImageResultTest, AFileThatChangedItsSizeFailsReadingAndCopying)
{
    Write("tree/large.bin", "short now");
    std::string whole(bytes.size(), '\0');

    EXPECT_EQ(ErrorNumberOf([&] { stream->Read(std::as_writable_bytes(std::span(whole))); }),
        kFileChanged);
    EXPECT_EQ(ErrorNumberOf([&] {
        stream->Seek(0);
        stream->CopyTo(NewFile("disc.iso"), kMoreThanThereIs);
    }),
        kFileChanged);
}

TEST_F(ImageResultTest, AFileThatWasRewrittenIsNamedAfterReadingAndCopying)
{
    EXPECT_EQ(stream->ChangedSources(), QList<text::ProgramPath>());
    const std::filesystem::path file = folder / "tree/large.bin";
    Rewrite(file, "other bytes");
    stream->CopyTo(NewFile("disc.iso"), kMoreThanThereIs);
    EXPECT_EQ(stream->ChangedSources(), QList {ProgramPath(file)});
}

TEST_F(ImageResultTest, ACopyThatFailsLeavesNoImage)
{
    std::filesystem::remove(folder / "tree/small.txt");

    EXPECT_NE(ErrorNumberOf([&] { stream->CopyTo(NewFile("disc.iso"), kMoreThanThereIs); }), 0);

    const std::string left = ImageFileText(folder / "disc.iso");
    EXPECT_EQ(left.find("CD001"), std::string::npos);
    EXPECT_EQ(left.find("NSR0"), std::string::npos);
}

TEST_F(ImageResultTest, TheResultOutlivesItsImage)
{
    image.reset();

    EXPECT_EQ(BytesOf(*result), bytes);
}

TEST_F(ImageResultTest, ASecondResultIsTheSame)
{
    EXPECT_EQ(BytesOf(*image->CreateResultImage()), bytes);
}

TEST_F(ImageResultTest, NamesThatAFileSystemCannotKeepAreTold)
{
    folder.MakeFile("tree/a:b", 1);
    folder.MakeFile("tree/kept.txt", 1);
    mastering::FileSystemImage other(clock);
    other.Root()->AddTree(ProgramPath(folder / "tree"), true);

    const std::vector<imapi::ChangedName> names = other.CreateResultImage()->ChangedNames();

    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(names.front().path, u"tree\\a:b"_disc);
    EXPECT_EQ(names.front().recorded, u"a_b"_s);
    EXPECT_EQ(names.front().fileSystem, u"Joliet"_s);
}

TEST_F(ImageResultTest, WhatOneFileSystemLacksIsToldWithItsName)
{
    folder.MakeFolder("tree");
    std::filesystem::create_symlink("nowhere", folder / "tree/link");
    mastering::FileSystemImage other(clock);
    other.Root()->AddTree(ProgramPath(folder / "tree"), true);

    const imapi::ImageResultRef held = other.CreateResultImage();

    EXPECT_TRUE(held->LinksLeftOut().empty()) << "ISO 9660 has it";
    const std::vector<imapi::PartlyHeldEntry> entries = held->PartlyHeld();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries.front().path, u"tree\\link"_disc);
    EXPECT_EQ(entries.front().fileSystem, u"Joliet"_s);
    EXPECT_TRUE(entries.front().reason.startsWith(u"Ce système de fichiers n'a pas de liens"_s));
}

TEST_F(ImageResultTest, NamesThatReadersLoseAreTold)
{
    folder.MakeFile("tree/a", 1);
    folder.MakeFile("tree/A", 1);
    mastering::FileSystemImage other(clock);
    other.Root()->AddTree(ProgramPath(folder / "tree"), true);

    const std::vector<imapi::NameHazard> hazards = other.CreateResultImage()->NameHazards();

    ASSERT_EQ(hazards.size(), 2U);
    EXPECT_EQ(hazards.front().path, u"tree\\A"_disc);
    EXPECT_TRUE(hazards.front().reason.contains(u"Windows"_s));
}

} // namespace velmora::test
