// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/ImageStream.h"

#include "image/ImageFile.h"
#include "tests/platform/image/ImageBench.h"

#include <algorithm>
#include <random>

namespace velmora::test {

using namespace image;

namespace {

struct Kind {
    const char* name;
    FileSystems fileSystems;
    UdfRevision revision;
    bool strict;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

constexpr Kind kKinds[] {
    {"Plain", {true, false, false}, UdfRevision::Udf102, true},
    {"RockRidge", {true, false, false}, UdfRevision::Udf102, false},
    {"Joliet", {true, true, false}, UdfRevision::Udf102, false},
    {"Udf102", {false, false, true}, UdfRevision::Udf102, false},
    {"Udf250", {false, false, true}, UdfRevision::Udf250, false},
    {"IsoUdf", {true, false, true}, UdfRevision::Udf102, false},
    {"Bridge", {true, true, true}, UdfRevision::Udf102, false},
};

} // namespace

/// Any range in any order is what one read from start to end gives: a tree with directories longer
/// than 64 KiB, continuation areas, hard links and files around the length of a sector.
class ImageStreamTest : public ImageBench, public testing::WithParamInterface<Kind> {
protected:
    ImageStreamTest()
    {
        options.fileSystems = GetParam().fileSystems;
        options.udfRevision = GetParam().revision;
        options.strict = GetParam().strict;
        const std::string file = Write("any", "hard link");
        AddDirectory("long names");
        AddDirectory("long names/empty");
        for (int i = 0; i < 400; ++i) { // continuation areas of 120 KiB
            const std::string name = std::to_string(i) + std::string(220, 'n');
            EXPECT_TRUE(tree->AddFile("long names/" + name, file));
        }
        AddDirectory("MANY");
        for (int i = 0; i < 1200; ++i) { // records of 120 KiB
            EXPECT_TRUE(tree->AddFile("MANY/F" + std::to_string(i), file));
        }
        for (const std::size_t size : {0, 1, 2047, 2048, 2049, 6000}) {
            AddFile("SIZE" + std::to_string(size), std::string(size, 'a'));
        }
        AddFile("LARGE", std::string(70000, 'b')); // aligned
    }
};

TEST_P(ImageStreamTest, AnyRangeIsAsInTheWhole)
{
    const std::string whole = Bytes();
    ImageStream stream(Plan());
    std::mt19937 random(20260309);

    for (const std::size_t longest : {1, 7, 100, 2047, 2048, 2049, 10000}) {
        for (int i = 0; i < 150; ++i) {
            const std::size_t length = 1 + random() % longest;
            const std::size_t offset = random() % (whole.size() - length + 1);
            ASSERT_EQ(Read(stream, offset, length), whole.substr(offset, length))
                << length << " bytes from " << offset;
        }
    }
}

TEST_P(ImageStreamTest, SectorsBackwardsAreAsInTheWhole)
{
    const std::string whole = Bytes();
    ImageStream stream(Plan());

    for (std::size_t sector = whole.size() / kSector; sector-- > 0;) {
        ASSERT_EQ(Read(stream, sector * kSector, kSector), whole.substr(sector * kSector, kSector))
            << sector;
    }
}

TEST_P(ImageStreamTest, EveryByteAloneIsAsInTheWholeAroundSectorEnds)
{
    const std::string whole = Bytes();
    ImageStream stream(Plan());

    for (std::size_t end = kSector; end < whole.size(); end += kSector) {
        ASSERT_EQ(Read(stream, end - 1, 2), whole.substr(end - 1, 2)) << end;
    }
    EXPECT_EQ(Read(stream, whole.size() - 1, 1), whole.substr(whole.size() - 1));
    EXPECT_EQ(Read(stream, whole.size(), 0), ""); // nothing, at the very end
}

TEST_P(ImageStreamTest, BytesAreTheSameWithOneThreadAndWithFour)
{
    options.threads = 1;
    const std::string first = Bytes();
    options.threads = 4;

    EXPECT_EQ(Bytes(), first);
    EXPECT_EQ(Bytes(), first); // and again
}

TEST_P(ImageStreamTest, FileHoldsTheBytesOfTheStream)
{
    const std::string whole = Bytes();

    for (const unsigned threads : {1U, 4U}) {
        const std::string path = (folder / "image.iso").native();
        ASSERT_TRUE(WriteImageFile(Plan(), path, {.threads = threads}));
        EXPECT_TRUE(ContentOf(path) == whole) << threads;
    }
}

INSTANTIATE_TEST_SUITE_P(FileSystems,
    ImageStreamTest,
    testing::ValuesIn(kKinds),
    [](const testing::TestParamInfo<Kind>& kind) { return std::string(kind.param.name); });

/// The order of a folder and of what was added must not show.
class RepeatedImageTest : public ImageBench { };

TEST_F(RepeatedImageTest, ScansOfOneFolderGiveTheSameBytes)
{
    for (int i = 0; i < 40; ++i) {
        Write("top/" + std::to_string(i % 5) + "/file " + std::to_string(i), std::to_string(i));
    }
    Scan(folder / "top");
    const std::string first = Bytes();

    for (const unsigned threads : {1U, 4U}) {
        tree = std::make_shared<SourceTree>(kMoment);
        ASSERT_TRUE(ScanFolder(*tree,
            SourceTree::kRoot,
            (folder / "top").native(),
            IncludeBase::No,
            {.threads = threads}));
        EXPECT_TRUE(Bytes() == first) << threads;
    }
}

TEST_F(RepeatedImageTest, OrderOfAddingDoesNotShow)
{
    const std::vector<std::string> names {"b", "A", "é", "a b", "a:b", "a*b"};
    for (const std::string& name : names) {
        AddFile(name, name);
    }
    const std::string first = Bytes();
    tree = std::make_shared<SourceTree>(kMoment);
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        AddFile(*name, *name);
    }

    EXPECT_TRUE(Bytes() == first);
}

TEST_F(RepeatedImageTest, TimeComesFromTheCaller)
{
    const std::string first = Bytes();
    options.created.seconds += 1;
    EXPECT_FALSE(Bytes() == first);
    options.created.seconds -= 1;
    EXPECT_TRUE(Bytes() == first);
}

} // namespace velmora::test
