// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ImageDraft.h"

#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "tests/writing/ImageStageBench.h"

namespace velmora::test {

using namespace path_literals;
using compilation::EntryKind;
using drive::FsiFileSystems;
using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
using imapi::ImageEntry;
using shell::DiscFormat;
using shell::DiscTypeChoice;
using writing::FileSystemOption;

class ImageDraftTest : public ImageStageBench {
protected:
    imapi::ImageDraft Draft() const { return writing::DraftOf(options, state, list); }
    imapi::ImageDraft DraftOf(DiscTypeChoice choice, FileSystemOption fileSystem)
    {
        state.MediaTypeChoice = choice;
        options.fileSystem = fileSystem;
        return Draft();
    }
    IMAPI_MEDIA_PHYSICAL_TYPE MediumOfDetected(DiscFormat format)
    {
        state.MediaTypeChoice = DiscTypeChoice::AsDetected;
        state.DiscFormat = format;
        return Draft().medium;
    }
};

TEST_F(ImageDraftTest, RowsBecomeWhatTheyAddToAnImage)
{
    AddRow(u"a.txt"_s, EntryKind::File, u"\\home\\u\\a.txt"_s);
    AddRow(u"A\\B\\"_s, EntryKind::Directory, u"\\home\\u\\Holidays\\"_s);
    AddRow(u"New\\"_s, EntryKind::Directory, u" "_s);
    const std::vector<ImageEntry> entries = Draft().entries;
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].kind, ImageEntry::Kind::File);
    EXPECT_EQ(entries[0].path, u"a.txt"_disc);
    EXPECT_EQ(entries[0].source, u"\\home\\u\\a.txt"_path);
    EXPECT_EQ(entries[1].kind, ImageEntry::Kind::Tree);
    EXPECT_EQ(entries[1].path, u"A"_disc);
    EXPECT_EQ(entries[1].source, u"\\home\\u\\Holidays"_path);
    EXPECT_EQ(entries[2].kind, ImageEntry::Kind::Directory);
    EXPECT_EQ(entries[2].path, u"New"_disc);
}

TEST_F(ImageDraftTest, RowsThatAddNothingHaveNoEntry)
{
    AddRow(u"a"_s, {}, u"\\a"_s);
    AddRow({}, EntryKind::File, u"\\a"_s);
    AddRow(u"b"_s, EntryKind::File, {});
    AddRow(u"\\"_s, EntryKind::Directory, {});
    EXPECT_TRUE(Draft().entries.empty());
}

TEST_F(ImageDraftTest, AListThatARunCantCountGivesNoEntries)
{
    for (int row = 0; row < writing::kMostRows; ++row)
        AddRow(QString::number(row), EntryKind::File, u"\\a"_s);
    EXPECT_EQ(Draft().entries.size(), std::size_t {writing::kMostRows});
    AddRow(u"one more"_s, EntryKind::File, u"\\a"_s);
    EXPECT_TRUE(Draft().entries.empty());
}

TEST_F(ImageDraftTest, APromisedDiscHasTheFileSystemsOfTheOptions)
{
    const imapi::ImageDraft dvd = DraftOf(DiscTypeChoice::DvdPlusR, FileSystemOption::Joliet);
    EXPECT_EQ(dvd.medium, IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusR);
    EXPECT_EQ(dvd.fileSystems, FsiFileSystems::Iso9660AndJoliet);
    EXPECT_EQ(dvd.volumeName, u"Photos"_s);
    EXPECT_EQ(DraftOf(DiscTypeChoice::BdR, FileSystemOption::Udf).fileSystems, FsiFileSystems::Udf);
}

TEST_F(ImageDraftTest, OnlyIso9660OnACdOfMode1IsStrict)
{
    EXPECT_TRUE(DraftOf(DiscTypeChoice::CdR, FileSystemOption::Iso9660).isStrict);
    EXPECT_FALSE(DraftOf(DiscTypeChoice::CdR, FileSystemOption::Joliet).isStrict);
    EXPECT_FALSE(DraftOf(DiscTypeChoice::DvdPlusR, FileSystemOption::Iso9660).isStrict);
    options.dataMode = writing::DataMode::Mode2Xa;
    EXPECT_FALSE(DraftOf(DiscTypeChoice::CdR, FileSystemOption::Iso9660).isStrict);
}

TEST_F(ImageDraftTest, ADetectedDiscGoesByItsFamily)
{
    EXPECT_EQ(MediumOfDetected(DiscFormat::Cd), IMAPI_MEDIA_PHYSICAL_TYPE::CdR);
    EXPECT_EQ(MediumOfDetected(DiscFormat::Dvd), IMAPI_MEDIA_PHYSICAL_TYPE::DvdPlusR);
    EXPECT_EQ(MediumOfDetected(DiscFormat::BluRay), IMAPI_MEDIA_PHYSICAL_TYPE::BdR);
    EXPECT_EQ(MediumOfDetected(DiscFormat::InDrive), IMAPI_MEDIA_PHYSICAL_TYPE::Disk);
    EXPECT_FALSE(Draft().fileSystems) << "the disc decides";
}

} // namespace velmora::test
