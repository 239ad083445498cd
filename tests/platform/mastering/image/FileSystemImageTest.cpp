// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/FileSystemImage.h"

#include "tests/platform/mastering/ErrorNumbers.h"
#include "tests/platform/mastering/ImageBench.h"
#include "tests/support/Unprivileged.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <functional>
#include <tuple>
#include <vector>

namespace velmora::test {

using drive::FsiFileSystems;
using FileSystemImageTest = ImageBench;

TEST_F(FileSystemImageTest, ANewImageIsForACdOf74Minutes)
{
    EXPECT_EQ(image->FreeMediaBlocks(), 332'800);
    EXPECT_EQ(image->VolumeNameISO9660(), u"20260309_070504"_s);
}

TEST_F(FileSystemImageTest, ItsTimesAreThoseThatAreWanted)
{
    const image::TimeStamp made {.seconds = 2 * 86400};
    const image::TimeStamp latest {.seconds = 86400};
    image = std::make_shared<mastering::FileSystemImage>(
        clock, std::nullopt, mastering::ImageTimes {.made = made, .latest = latest});
    Write("tree/now", "x");
    AddTree("tree");

    const std::string bytes = BytesOf(*image->CreateResultImage());

    EXPECT_EQ(bytes.substr(16 * 2048 + 813, 16), "1970010300000000");        // ECMA-119 8.4.26
    const std::string recorded = bytes.substr(bytes.find("NOW.;1") - 15, 7); // ECMA-119 9.1.5
    EXPECT_EQ(recorded, std::string("\x46\x01\x02\0\0\0\0", 7));
}

TEST_F(FileSystemImageTest, KeptAttributesAreThoseOfTheRootsFolderToo)
{
    const std::filesystem::path source = Write("tree/file", "x").parent_path();
    std::filesystem::permissions(source, std::filesystem::perms(0710));
    std::ignore = ::chown(source.c_str(), 1234, 567); // where this test may
    struct stat status { };
    ASSERT_EQ(::stat(source.c_str(), &status), 0);
    image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);

    image->KeepAttributes(ProgramPath(source));
    image->Root()->AddTree(ProgramPath(source), false);

    const std::string bytes = BytesOf(*image->CreateResultImage());
    const auto number = [&bytes](std::size_t at) {
        std::uint32_t value = 0;
        std::memcpy(&value, &bytes.at(at), sizeof value);
        return value;
    };
    const std::size_t posix = number(16 * 2048 + 158) * 2048 + 34 + 7; // after the SP field
    EXPECT_EQ(bytes.substr(posix, 2), "PX");
    EXPECT_EQ(number(posix + 4), unsigned {S_IFDIR} | 0710U);
    EXPECT_EQ(number(posix + 20), status.st_uid);
    EXPECT_EQ(number(posix + 28), status.st_gid);
}

TEST_F(FileSystemImageTest, AFolderThatIsGoneHasNoAttributesToKeep)
{
    EXPECT_NE(ErrorNumberOf([&] { image->KeepAttributes(ProgramPath(folder / "gone")); }), 0);
}

TEST_F(FileSystemImageTest, TheFileSystemsOfTheProgramAreTaken)
{
    for (const int set : {1, 3, 4, 5, 7}) {
        const auto fileSystems = static_cast<FsiFileSystems>(set);
        EXPECT_EQ(ErrorNumberOf([&] { image->SetFileSystemsToCreate(fileSystems); }), 0) << set;
    }
}

TEST_F(FileSystemImageTest, FileSystemsThatMakeNoDiscAreRefused)
{
    for (const int set : {0, 2, 6, 8, 0x40000000, -1}) {
        const auto fileSystems = static_cast<FsiFileSystems>(set);
        EXPECT_EQ(ErrorNumberOf([&] { image->SetFileSystemsToCreate(fileSystems); }), kInvalidParam)
            << set;
    }
}

TEST_F(FileSystemImageTest, TheInterchangeLevelIsOneOrTwo)
{
    for (const qint32 level : {1, 2}) {
        EXPECT_EQ(ErrorNumberOf([&] { image->SetISO9660InterchangeLevel(level); }), 0) << level;
    }
    for (const qint32 level : {-1, 0, 3, 4}) {
        EXPECT_EQ(ErrorNumberOf([&] { image->SetISO9660InterchangeLevel(level); }), kInvalidParam)
            << level;
    }
}

TEST_F(FileSystemImageTest, StrictComplianceComesBeforeTheFirstEntry)
{
    image->Root()->AddDirectory(u"A"_disc);

    EXPECT_EQ(ErrorNumberOf([&] { image->SetStrictFileSystemCompliance(true); }), kInvalidParam);
    EXPECT_EQ(ErrorNumberOf([&] { image->SetStrictFileSystemCompliance(false); }), 0);
}

TEST_F(FileSystemImageTest, AWorkingDirectoryThatCanBeWrittenIsTaken)
{
    EXPECT_EQ(ErrorNumberOf([&] { image->SetWorkingDirectory(ProgramPath(folder.Path())); }), 0);
    EXPECT_EQ(ErrorNumberOf([&] { image->SetWorkingDirectory(ProgramPath(folder / "")); }), 0);
}

TEST_F(FileSystemImageTest, AWorkingDirectoryThatIsNoneIsRefused)
{
    const text::ProgramPath missing = ProgramPath(folder / "missing");
    const text::ProgramPath file = ProgramPath(Write("file", "x"));
    for (const text::ProgramPath& path : {text::ProgramPath(), missing, file}) {
        EXPECT_EQ(
            ErrorNumberOf([&] { image->SetWorkingDirectory(path); }), kInvalidWorkingDirectory);
    }
}

TEST_F(FileSystemImageTest, AWorkingDirectoryWithoutWriteAccessIsRefused)
{
    const std::filesystem::path closed = folder.MakeFolder("closed");
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(closed, std::filesystem::perms(0555));
    const Unprivileged user;

    EXPECT_EQ(ErrorNumberOf([&] { image->SetWorkingDirectory(ProgramPath(closed)); }),
        kInvalidWorkingDirectory);
}

TEST_F(FileSystemImageTest, AVolumeNameOfUpTo32UnitsIsTaken)
{
    const QString longest(32, u'é');
    for (const QString& name : {u"A"_s, u"20260309-070504"_s, u"Été à la mer"_s, longest}) {
        EXPECT_EQ(ErrorNumberOf([&] { image->SetVolumeName(name); }), 0);
    }
}

TEST_F(FileSystemImageTest, AVolumeNameThatIsNoneIsRefusedAndTheOldOneStays)
{
    image->SetVolumeName(u"GOOD"_s);
    const QString tooLong(33, u'a');
    for (const QString& name : {QString(), tooLong, u"a\tb"_s, u"a\u0085b"_s}) {
        EXPECT_EQ(ErrorNumberOf([&] { image->SetVolumeName(name); }), kInvalidVolumeName);
    }
    EXPECT_EQ(image->VolumeNameISO9660(), u"GOOD"_s);
}

TEST_F(FileSystemImageTest, TheIsoVolumeNameIsMadeOfDCharacters)
{
    image->SetVolumeName(u"Été 2026 (mer)"_s);
    EXPECT_EQ(image->VolumeNameISO9660(), u"ETE_2026__MER_"_s);

    image->SetVolumeName(u"20260309-070504"_s);
    EXPECT_EQ(image->VolumeNameISO9660(), u"20260309_070504"_s);
}

TEST_F(FileSystemImageTest, TheVolumeNameStandsInTheImage)
{
    image->SetVolumeName(u"Mon disque"_s);
    image->Root()->AddDirectory(u"A"_disc);

    const std::string bytes = BytesOf(*image->CreateResultImage());

    EXPECT_EQ(bytes.substr(16UL * 2048 + 40, 32), "MON_DISQUE                      ");
}

/// An image whose result was created.
class FinishedImageTest : public ImageBench {
protected:
    FinishedImageTest()
    {
        image->Root()->AddDirectory(u"A"_disc);
        image->CreateResultImage();
    }
};

TEST_F(FinishedImageTest, TakesNoEntryAnyMore)
{
    const imapi::StreamRef stream = Open(Write("a.txt", "a"));
    folder.MakeFolder("tree");
    const imapi::DirectoryItemRef root = image->Root();

    EXPECT_EQ(ErrorNumberOf([&] { root->AddDirectory(u"B"_disc); }), kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] { root->AddFile(u"a.txt"_disc, stream); }), kReadOnly);
    EXPECT_EQ(ErrorNumberOf([&] { AddTree("tree"); }), kReadOnly);
}

TEST_F(FinishedImageTest, TakesNoSettingAnyMore)
{
    const std::vector<std::function<void()>> settings {
        [&] { image->ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE::CdR); },
        [&] { image->SetFileSystemsToCreate(FsiFileSystems::Udf); },
        [&] { image->SetISO9660InterchangeLevel(1); },
        [&] { image->SetUseRestrictedCharacterSet(true); },
        [&] { image->SetStrictFileSystemCompliance(true); },
        [&] { image->SetWorkingDirectory(ProgramPath(folder.Path())); },
        [&] { image->SetVolumeName(u"B"_s); },
    };
    for (const auto& setting : settings) {
        EXPECT_EQ(ErrorNumberOf(setting), kReadOnly);
    }
}

TEST_F(FileSystemImageTest, AFailureCarriesItsFrenchDescription)
{
    try {
        image->SetVolumeName(u""_s);
        FAIL() << "the name was taken";
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_EQ(failure.Description(), u"Nom de volume non valide."_s);
    }
}

TEST_F(FileSystemImageTest, AnImageWithoutEntriesIsADiscAllTheSame)
{
    EXPECT_EQ(BytesOf(*image->CreateResultImage()).substr(32'769, 5), "CD001");
}

TEST_F(FileSystemImageTest, Mode1OnACdMakesNamesOf8And3)
{
    image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);
    image->SetISO9660InterchangeLevel(1);
    image->SetUseRestrictedCharacterSet(true);
    image->SetStrictFileSystemCompliance(true);
    image->Root()->AddFile(u"Longue chanson.mp3"_disc, Open(Write("song", "la")));

    const std::string bytes = BytesOf(*image->CreateResultImage());

    EXPECT_TRUE(HoldsName(bytes, "LONGUE_C.MP3;1"));
    EXPECT_FALSE(HoldsName(bytes, "Longue chanson"));
}

TEST_F(FileSystemImageTest, Mode2OnACdKeepsLongNames)
{
    image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);
    image->SetISO9660InterchangeLevel(2);
    image->Root()->AddFile(u"Longue chanson.mp3"_disc, Open(Write("song", "la")));

    EXPECT_TRUE(HoldsName(BytesOf(*image->CreateResultImage()), "LONGUE_CHANSON.MP3;1"));
}

} // namespace velmora::test
