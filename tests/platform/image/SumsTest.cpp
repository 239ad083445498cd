// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/Sums.h"

#include "digest/FileSums.h"
#include "image/FilePlaces.h"
#include "image/ImageFile.h"
#include "tests/platform/image/ImageBench.h"

namespace velmora::test {
namespace {

using image::SumsEnd;

// As sha256sum(1) computes them.
constexpr std::string_view kSumOfNothing
    = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
constexpr std::string_view kSumOfX
    = "2d711642b726b04401627ca9fbac32f5c8530fb1903cc4db02258717921a4881";
constexpr std::string_view kSumOfY
    = "a1fce4363854ff888cff4b8e7875d600c2682390412a8cf79b37d0b11148b0fa";

std::string Line(std::string_view sum, std::string_view name)
{
    return std::string(sum) + "  " + std::string(name) + "\n";
}

/// Counts what goes by.
class CountingSums final : public image::SumMaker {
public:
    void Add(std::span<const std::byte> bytes) override
    {
        count += bytes.size();
        sums_.Add(bytes);
    }
    image::FileSum Finish() override { return sums_.Finish(); }

    std::uint64_t count = 0;

private:
    digest::FileSums sums_;
};

class SumsTest : public ImageBench {
protected:
    SumsTest() { options.sums = sums; }

    SumsEnd Add() const { return AddSums(tree, options); }

    /// Where the list lies.
    static std::string ListIn(const std::string& image, const image::ImagePlan& plan)
    {
        std::string found;
        for (std::uint64_t at = 0; at < image.size(); at += kSector) {
            for (const image::FilePlace& file : FilesBetween(plan, at, at + kSector)) {
                if (file.path == image::kSumsName) {
                    found += image.substr(at, kSector);
                }
            }
        }
        return found.substr(0, found.find('\0'));
    }

    std::string List() const { return ListIn(Bytes(), Plan()); }

    std::shared_ptr<CountingSums> sums = std::make_shared<CountingSums>();
};

TEST_F(SumsTest, AllFilesAreListed)
{
    AddFile("x", "x");
    AddFile("empty", "");
    AddDirectory("folder");
    AddFile("folder/y", "y");

    ASSERT_EQ(Add(), SumsEnd::Added);
    EXPECT_EQ(
        List(), Line(kSumOfNothing, "empty") + Line(kSumOfX, "x") + Line(kSumOfY, "folder/y"));
}

TEST_F(SumsTest, NoFileIsReadTwice)
{
    constexpr std::size_t kLarge = 3'000'000;
    AddFile("large", std::string(kLarge, 'l'));
    AddFile("x", "x");

    ASSERT_EQ(Add(), SumsEnd::Added);
    Bytes();
    EXPECT_EQ(sums->count, kLarge + 1);
}

TEST_F(SumsTest, NamesAreEscapedAsTheCheckerReadsThem)
{
    AddFile("back\\slash", "x");
    AddFile("line\nfeed", "x");
    AddFile("return\r", "x");

    Choose(true, false, false);
    ASSERT_EQ(Add(), SumsEnd::Added);
    EXPECT_EQ(List(),
        "\\" + Line(kSumOfX, "back\\\\slash") + "\\" + Line(kSumOfX, "line\\nfeed") + "\\"
            + Line(kSumOfX, "return\\r"));
}

TEST_F(SumsTest, ALaterPartOfTheImageCanBeReadFirst)
{
    constexpr std::size_t kLarge = 700'000;
    AddFile("large", std::string(kLarge, 'l'));
    AddFile("x", "x");
    ASSERT_EQ(Add(), SumsEnd::Added);
    const std::string whole = Bytes();

    options.sums = std::make_shared<CountingSums>();
    image::ImageStream stream(Plan());
    std::string other(whole.size(), '\0');
    constexpr std::size_t kPiece = 100 * kSector;
    for (std::size_t end = whole.size(); end > 0;) {
        const std::size_t begin = end - std::min(end, kPiece);
        other.replace(begin, end - begin, Read(stream, begin, end - begin));
        end = begin;
    }
    EXPECT_TRUE(other == whole);
}

TEST_F(SumsTest, AFileOfThatNameStays)
{
    AddFile("SHA256SUMS", "mine");
    AddFile("x", "x");

    EXPECT_EQ(Add(), SumsEnd::KeptOther);
    EXPECT_EQ(List(), "mine");
}

TEST_F(SumsTest, WithoutAFileThereIsNoList)
{
    AddDirectory("folder");
    EXPECT_EQ(Add(), SumsEnd::NoFiles);
    EXPECT_EQ(Plan().Files(), 0U);
}

TEST_F(SumsTest, HardLinksAreListedEachAndReadOnce)
{
    Write("source/one", "x");
    std::filesystem::create_hard_link(folder / "source/one", folder / "source/two");
    Scan(folder / "source");

    ASSERT_EQ(Add(), SumsEnd::Added);
    EXPECT_EQ(List(), Line(kSumOfX, "one") + Line(kSumOfX, "two"));
    EXPECT_EQ(sums->count, 1U);
}

TEST_F(SumsTest, EveryFileSystemHasTheList)
{
    const std::array<std::array<bool, 3>, 4> kinds {
        {{true, false, false}, {true, true, false}, {false, false, true}, {true, true, true}}};
    AddFile("x", "x");
    ASSERT_EQ(Add(), SumsEnd::Added);
    for (const auto& [iso9660, joliet, udf] : kinds) {
        Choose(iso9660, joliet, udf);
        EXPECT_EQ(List(), Line(kSumOfX, "x"));
        EXPECT_EQ(Plan().Files(), 2U);
    }
}

TEST_F(SumsTest, ALinkToTheListIsRecordedAsItWhereThereAreNoLinks)
{
    Write("source/x", "x");
    std::filesystem::create_symlink("SHA256SUMS", folder / "source/link");
    Scan(folder / "source");

    Choose(true, true, false);
    ASSERT_EQ(Add(), SumsEnd::Added);
    EXPECT_EQ(List(), Line(kSumOfX, "x"));
    EXPECT_TRUE(Plan().LeftOut().empty());
}

TEST_F(SumsTest, AnImageFileHasThemToo)
{
    constexpr std::size_t kLarge = 5'000'000;
    AddFile("large", std::string(kLarge, 'l'));
    AddSparse("holes", kLarge);
    AddFile("x", "x");
    ASSERT_EQ(Add(), SumsEnd::Added);
    const std::string expected = Bytes();

    const image::ImagePlan plan = Plan();
    sums->count = 0;
    const std::string file = folder / "image.iso";
    ASSERT_TRUE(image::WriteImageFile(plan, file));
    EXPECT_TRUE(ContentOf(file) == expected);
    EXPECT_EQ(sums->count, 2 * kLarge + 1);
}

} // namespace
} // namespace velmora::test
