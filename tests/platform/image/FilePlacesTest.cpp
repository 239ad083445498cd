// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/FilePlaces.h"

#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

using namespace image;

namespace {

/// Files whose contents can be found in the image by their fill byte.
class FilePlacesTest : public ImageBench {
protected:
    FilePlacesTest()
    {
        options.fileSystems = {true, true, true};
        AddDirectory("folder");
        AddFile("first", std::string(5000, '\1'));
        AddFile("none", "");
        AddFile("second", std::string(2048, '\2'));
        AddFile("folder/third", std::string(70'000, '\3'));
        bytes = Bytes();
    }

    /// "path+first byte" for each file between two bytes of the image.
    std::string Between(std::uint64_t begin, std::uint64_t end)
    {
        std::string all;
        for (const FilePlace& file : FilesBetween(Plan(), begin, end)) {
            all += file.path + "+" + std::to_string(file.firstByte) + " ";
        }
        return all;
    }
    std::uint64_t PlaceOf(char content) const { return bytes.find(std::string(2048, content)); }

    std::string bytes;
};

} // namespace

TEST_F(FilePlacesTest, TheWholeImageHoldsEveryFileThatHasBytes)
{
    EXPECT_EQ(Between(0, bytes.size()), "first+0 second+0 folder/third+0 ");
}

TEST_F(FilePlacesTest, AByteBelongsToTheFileThatHasIt)
{
    const std::uint64_t first = PlaceOf('\1');
    EXPECT_EQ(Between(first, first + 1), "first+0 ");
    EXPECT_EQ(Between(first + 4999, first + 5000), "first+4999 ");
    EXPECT_EQ(Between(first - 1, first), "");
    EXPECT_EQ(Between(first + 5000, first + 6144), "") << "what fills its last sector is nobody's";
}

TEST_F(FilePlacesTest, ARangeOverSeveralFilesNamesThemInTheirOrder)
{
    const std::uint64_t first = PlaceOf('\1');
    const std::uint64_t third = PlaceOf('\3');
    EXPECT_EQ(Between(first + 4096, third + 1), "first+4096 second+0 folder/third+0 ");
    EXPECT_EQ(Between(third + 69'999, bytes.size()), "folder/third+69999 ");
    EXPECT_EQ(Between(third + 70'000, bytes.size()), "");
}

TEST_F(FilePlacesTest, DirectoriesAndDescriptorsAreNoFiles)
{
    EXPECT_EQ(Between(0, PlaceOf('\1')), "");
}

} // namespace velmora::test
