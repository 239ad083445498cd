// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/GrowingImage.h"

#include "tests/platform/image/ImageBench.h"
#include "unicode/FileDescriptor.h"

namespace velmora::test {

using namespace image;

/// An image of several pieces, whose last file lies in the last of them.
class GrowingImageTest : public ImageBench, public testing::WithParamInterface<FileSystems> {
protected:
    GrowingImageTest()
    {
        options.fileSystems = GetParam();
        options.udfRevision = UdfRevision::Udf250;
        for (int i = 0; i < 40; ++i) {
            AddFile("FILE" + std::to_string(10 + i), std::string(50'000, 'f'));
        }
        AddFile("LAST", "last");
    }

    /// Makes the image under its name.
    Result<CopyReport> Grow(const CopyOptions& how = {}) const
    {
        const unicode::FileDescriptor file(
            ::open(Target().c_str(), O_RDWR | O_CREAT | O_TRUNC, kFileMode));
        return GrowTo(Plan(), file.Get(), how);
    }

    std::string Target() const { return (folder / "image.iso").native(); }

    /// The image without what a reader looks for: volume descriptors and recognition sequence,
    /// which end before sector 32, and the anchors.
    std::string BytesWithoutDescriptors() const
    {
        std::string bytes = Bytes();
        const auto clear = [&bytes](std::size_t sector, std::size_t count) {
            bytes.replace(sector * kSector, count * kSector, count * kSector, '\0');
        };
        if (!options.fileSystems.udf) {
            clear(16, options.fileSystems.joliet ? 3 : 2);
            return bytes;
        }
        clear(16, 16);
        clear(256, 1);
        clear(bytes.size() / kSector - 1, 1);
        return bytes;
    }
};

TEST_P(GrowingImageTest, FileIsTheImage)
{
    ASSERT_TRUE(Grow());

    EXPECT_TRUE(ContentOf(Target()) == Bytes());
}

TEST_P(GrowingImageTest, DescriptorsComeWhenAllElseIsThere)
{
    const std::uint64_t whole = Plan().Bytes();
    std::string before;

    ASSERT_TRUE(Grow({.progress = [&](std::uint64_t done) {
        if (done == whole) before = ContentOf(Target());
        return true;
    }}));

    EXPECT_TRUE(before == BytesWithoutDescriptors());
    EXPECT_TRUE(ContentOf(Target()) == Bytes());
}

TEST_P(GrowingImageTest, AFailureLeavesNoImage)
{
    const ImagePlan plan = Plan();
    const std::string expected = BytesWithoutDescriptors();
    std::filesystem::remove(folder / "source/LAST");
    const unicode::FileDescriptor file(
        ::open(Target().c_str(), O_RDWR | O_CREAT | O_TRUNC, kFileMode));

    ASSERT_FALSE(GrowTo(plan, file.Get(), {.threads = 1}));

    const std::string left = ContentOf(Target());
    EXPECT_GT(left.size(), 1'000'000U) << "what was written";
    EXPECT_LT(left.size(), plan.Bytes()) << "and no more";
    EXPECT_TRUE(left == expected.substr(0, left.size()));
}

INSTANTIATE_TEST_SUITE_P(OfEachKind,
    GrowingImageTest,
    testing::Values(FileSystems {true, false, false},
        FileSystems {true, true, false},
        FileSystems {true, true, true},
        FileSystems {false, false, true}));

} // namespace velmora::test
