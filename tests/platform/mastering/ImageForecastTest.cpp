// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/ImageForecast.h"

#include "tests/platform/mastering/ImageBench.h"

#include <limits>

namespace velmora::test {

using drive::FsiFileSystems;
using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
using imapi::ImageEntry;
using imapi::ImageRemarks;

class ImageForecastTest : public ImageBench {
protected:
    std::optional<ImageRemarks> Forecast(
        std::size_t mostNames = std::numeric_limits<std::size_t>::max()) const
    {
        return mastering::ImageForecast().Forecast(draft, mostNames, stop.get_token());
    }
    void AddTreeEntry(const std::string& name)
    {
        draft.entries.push_back(
            {.kind = ImageEntry::Kind::Tree, .source = ProgramPath(folder / name)});
    }

    imapi::ImageDraft draft {.medium = IMAPI_MEDIA_PHYSICAL_TYPE::CdR};
    std::stop_source stop;
};

TEST_F(ImageForecastTest, WhatTheMediumsFileSystemsChangeIsTold)
{
    Write("tree/a:b", "x");
    AddTreeEntry("tree");
    const std::optional<ImageRemarks> remarks = Forecast();
    ASSERT_TRUE(remarks);
    ASSERT_EQ(remarks->changedNames.size(), 1U);
    EXPECT_EQ(remarks->changedNames.front().recorded, u"a_b"_s);
    EXPECT_EQ(remarks->changedNames.front().fileSystem, u"Joliet"_s);
}

TEST_F(ImageForecastTest, OtherFileSystemsChangeOtherNames)
{
    Write("tree/a:b", "x");
    AddTreeEntry("tree");
    draft.fileSystems = FsiFileSystems::Udf;
    EXPECT_TRUE(Forecast()->changedNames.empty());
}

TEST_F(ImageForecastTest, NoMoreNamesAreToldThanAreAskedFor)
{
    for (const char* name : {"tree/a:b", "tree/c:d", "tree/e:f"})
        Write(name, "x");
    AddTreeEntry("tree");
    EXPECT_EQ(Forecast(2)->changedNames.size(), 2U);
}

TEST_F(ImageForecastTest, WhatCantBeAddedIsLeftOutAndTheRestGoesOn)
{
    Write("a:b", "x");
    draft.entries = {{.path = u"gone"_disc, .source = ProgramPath(folder / "gone")},
        {.kind = ImageEntry::Kind::Directory, .path = u"no parent\\made"_disc},
        {.path = u"a:b"_disc, .source = ProgramPath(folder / "a:b")}};
    const std::optional<ImageRemarks> remarks = Forecast();
    ASSERT_TRUE(remarks);
    ASSERT_EQ(remarks->leftOut.size(), 2U);
    EXPECT_EQ(remarks->leftOut[0].path, ProgramPath(folder / "gone").Text());
    EXPECT_EQ(remarks->leftOut[1].path, u"no parent\\made"_s);
    EXPECT_FALSE(remarks->leftOut[1].reason.isEmpty());
    EXPECT_EQ(remarks->changedNames.size(), 1U);
}

TEST_F(ImageForecastTest, AnImageThatIsTooLargeForItsMediumHasItsRemarks)
{
    constexpr std::uint64_t kMoreThanACd = 3'000'000'000;
    folder.MakeFile("tree/a:b", kMoreThanACd);
    AddTreeEntry("tree");
    EXPECT_EQ(Forecast()->changedNames.size(), 1U);
}

TEST_F(ImageForecastTest, OfAnImageThatCantBeThereAreNone)
{
    draft.medium = IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    EXPECT_FALSE(Forecast());
    draft.medium = IMAPI_MEDIA_PHYSICAL_TYPE::CdR;
    draft.volumeName = u"a\nb"_s;
    EXPECT_FALSE(Forecast());
}

TEST_F(ImageForecastTest, AfterAStopThereAreNone)
{
    Write("tree/a:b", "x");
    AddTreeEntry("tree");
    stop.request_stop();
    EXPECT_FALSE(Forecast());
    draft.entries.clear();
    EXPECT_FALSE(Forecast()) << "the layout gives up, too";
}

TEST_F(ImageForecastTest, AStopEndsAScan)
{
    Write("tree/a", "x");
    stop.request_stop();
    mastering::FileSystemImage measured(clock);
    measured.MeasureOnly(stop.get_token());
    EXPECT_NE(
        ErrorNumberOf([&] { measured.Root()->AddTree(ProgramPath(folder / "tree"), true); }), 0);
}

} // namespace velmora::test
