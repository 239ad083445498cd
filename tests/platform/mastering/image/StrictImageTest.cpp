// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/EntriesLeftOut.h"
#include "tests/platform/mastering/ErrorNumbers.h"
#include "tests/platform/mastering/ImageBench.h"

namespace velmora::test {

using drive::FsiFileSystems;

namespace {

/// An image for a CD in mode 1.
class StrictImageTest : public ImageBench {
protected:
    void SetUp() override
    {
        image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);
        image->SetISO9660InterchangeLevel(1);
        image->SetUseRestrictedCharacterSet(true);
        image->SetStrictFileSystemCompliance(true);
    }
};

} // namespace

TEST_F(StrictImageTest, EightLevelsAreTakenAndTheNinthIsRefused)
{
    QString path = u"D"_s;
    image->Root()->AddDirectory(text::DiscPath(path));
    for (int level = 3; level <= 8; ++level) { // the root is the first
        path += u"\\D"_s;
        ASSERT_EQ(ErrorNumberOf([&] { image->Root()->AddDirectory(text::DiscPath(path)); }), 0)
            << level;
    }

    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->AddDirectory(text::DiscPath(path + u"\\D"_s)); }),
        kTooDeep);
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->AddDirectory(text::DiscPath(path + u"\\D"_s)); }),
        kTooDeep);
    EXPECT_EQ(ErrorNumberOf([&] { image->CreateResultImage(); }), 0);
}

TEST_F(StrictImageTest, ATreeThatIsTooDeepLosesOnlyItsDeepestPart)
{
    Write("1/2/3/4/5/6/7/kept", "kept");
    Write("1/2/3/4/5/6/7/8/lost", "lost");

    EXPECT_EQ(ErrorNumberOf([&] { AddTree("1"); }), kTooDeep);

    const std::string bytes = BytesOf(*image->CreateResultImage());
    EXPECT_NE(bytes.find("KEPT."), std::string::npos);
    EXPECT_EQ(bytes.find("LOST."), std::string::npos);
}

TEST_F(StrictImageTest, AFileOverOneExtentIsRefused)
{
    image->ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE::Disk);
    image->SetFileSystemsToCreate(FsiFileSystems::Iso9660);
    image->Root()->AddDirectory(u"A"_disc);
    const std::filesystem::path file = folder.MakeFile("large", 5ULL << 30U);

    EXPECT_EQ(
        ErrorNumberOf([&] { image->Root()->AddFile(u"large"_disc, Open(file)); }), kFileTooLarge);
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->AddDirectory(u"large"_disc); }), 0);
}

TEST_F(StrictImageTest, EachEntryThatIsTooDeepIsLeftOutByItself)
{
    Write("tree/2/3/4/5/6/7/8/9/file", "x");
    try {
        AddTree("tree");
        FAIL() << "nine levels";
    } catch (const imapi::EntriesLeftOut& leftOut) {
        ASSERT_EQ(leftOut.Entries().size(), 3U);
        EXPECT_EQ(leftOut.Entries().back().path, u"tree\\2\\3\\4\\5\\6\\7\\8\\9\\file"_s);
    }
    EXPECT_EQ(ErrorNumberOf([&] { image->CreateResultImage(); }), 0);
}

} // namespace velmora::test
