// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/ContinuationAreas.h"
#include "image/iso/RockRidge.h"

#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

using image::SymbolicLink;

namespace {

const std::string kOwnerOfLink = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ";
const std::string kLinkPx = "50 58 24 01 FF A1 00 00 00 00 A1 FF "; // 0120777
const std::string kOneName = "01 00 00 00 00 00 00 01 ";
const std::string kTimeOfLink = "54 46 0C 01 02 7E 03 09 07 05 04 00 ";

std::string Repeated(std::string_view text, std::size_t times)
{
    std::string all;
    while (times-- > 0)
        all += text;
    return all;
}

} // namespace

/// SL fields (RRIP 4.1.3).
class SymbolicLinkFieldTest : public testing::Test { };

TEST_F(SymbolicLinkFieldTest, NamesAreComponents)
{
    EXPECT_EQ(Hex(SymbolicLink("a/bc")), "53 4C 0C 01 00 00 01 61 00 02 62 63");
}

TEST_F(SymbolicLinkFieldTest, RootCurrentAndParentAreFlags)
{
    EXPECT_EQ(Hex(SymbolicLink("/a")), "53 4C 0A 01 00 08 00 00 01 61");
    EXPECT_EQ(Hex(SymbolicLink("./../a")), "53 4C 0C 01 00 02 00 04 00 00 01 61");
    EXPECT_EQ(Hex(SymbolicLink("/")), "53 4C 07 01 00 08 00");
    EXPECT_EQ(Hex(SymbolicLink(".")), "53 4C 07 01 00 02 00");
}

TEST_F(SymbolicLinkFieldTest, SlashesThatStandForNothingAreNotRecorded)
{
    EXPECT_EQ(Hex(SymbolicLink("a//b/")), Hex(SymbolicLink("a/b")));
    EXPECT_EQ(Hex(SymbolicLink("//a")), Hex(SymbolicLink("/a")));
}

TEST_F(SymbolicLinkFieldTest, LongNameGoesOnInTheNextField)
{
    const std::string fields = SymbolicLink(std::string(300, 'x'));

    // 248 characters and the head of their component fill a field of 255 bytes.
    EXPECT_EQ(Hex(fields.substr(0, 7)), "53 4C FF 01 01 01 F8");
    EXPECT_EQ(Hex(fields.substr(255, 8)), "53 4C 3B 01 00 00 34 78");
    EXPECT_EQ(fields.size(), 255U + 7 + 52);
}

TEST_F(SymbolicLinkFieldTest, FieldEndsWithinAComponent)
{
    // 125 times ".." would fill a field to its end, and some readers add no slash after it.
    const std::string fields = SymbolicLink(Repeated("../", 125) + "a");

    EXPECT_EQ(Hex(fields.substr(0, 5)), "53 4C FF 01 01");
    EXPECT_EQ(Hex(fields.substr(251, 13)), "04 00 01 00 53 4C 0A 01 00 04 00 00 01");
    const std::string exact = SymbolicLink(std::string(247, 'x') + "/a");
    EXPECT_EQ(Hex(exact.substr(0, 7)), "53 4C FD 01 01 01 F6");
    EXPECT_EQ(Hex(exact.substr(253)), "53 4C 0B 01 00 00 01 78 00 01 61");
}

/// Path tables in sectors 18 and 19, the root in 20; its continuation areas after it.
class LinksInIsoTest : public ImageBench {
protected:
    LinksInIsoTest()
    {
        Choose(true, false, false);
        Write("top/file", "12345");
    }

    void Link(const std::string& text, const std::string& name) const
    {
        ASSERT_EQ(::symlink(text.c_str(), (folder / "top" / name).c_str()), 0) << name;
        const timespec moment {kMoment.seconds, long {kMoment.microseconds} * 1000};
        const timespec times[2] {moment, moment};
        ASSERT_EQ(
            ::utimensat(AT_FDCWD, (folder / "top" / name).c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    }

    std::string BytesOfTop()
    {
        Scan(folder / "top");
        Dated(folder / "top");
        return Bytes();
    }

    /// What each file system left out, as "Joliet name".
    std::vector<std::string> LeftOut() const
    {
        std::vector<std::string> all;
        const image::ImagePlan plan = Plan();
        for (const image::OmittedEntry& entry : plan.LeftOut())
            all.push_back(std::to_string(int(entry.fileSystem)) + ' ' + entry.error.path);
        return all;
    }
};

TEST_F(LinksInIsoTest, RecordOfALinkHasItsTextAndNoData)
{
    Link("../file", "link");

    const std::string image = BytesOfTop();

    // After the root's two records, 148 and 82 bytes, and that of "file", 98 bytes.
    const std::size_t record = 148 + 82 + 98;
    EXPECT_EQ(Part(image, 20, record + 33, 7), "LINK.;1");
    EXPECT_EQ(HexOf(image, 20, record + 2, 16), "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(HexOf(image, 20, record + 25, 1), "00");
    EXPECT_EQ(HexOf(image, 20, record + 40, 48 + 9 + 13),
        kLinkPx + kOneName + kOwnerOfLink + kTimeOfLink + "4E 4D 09 01 00 6C 69 6E 6B "
            + "53 4C 0D 01 00 04 00 00 04 66 69 6C 65");
}

TEST_F(LinksInIsoTest, LongTextGoesOnInContinuationAreasOfASectorEach)
{
    Link(Repeated("a/", 1500) + "b", "link"); // 3001 bytes, 4503 of components

    const std::string image = BytesOfTop();

    const std::size_t record = 148 + 82 + 98;
    // CE (SUSP 5.1): the first area fills sector 21 up to its last whole field and a CE of its own.
    EXPECT_EQ(HexOf(image, 20, record + 40, 4), "43 45 1C 01");
    EXPECT_EQ(NumberAt(image, 20 * kSector + record + 44, 4), 21U);
    EXPECT_EQ(NumberAt(image, 20 * kSector + record + 52, 4), 0U);
    const std::uint64_t length = NumberAt(image, 20 * kSector + record + 60, 4);
    ASSERT_LE(length, kSector);
    EXPECT_GT(length, kSector - 256 - 28);
    EXPECT_EQ(HexOf(image, 21, length - 28, 12), "43 45 1C 01 16 00 00 00 00 00 00 16");
    EXPECT_EQ(HexOf(image, 22, 0, 4), "53 4C FD 01");
    EXPECT_EQ(Plan().Links(), 1U);
}

TEST_F(LinksInIsoTest, AreasAreMadeOfWholeFields)
{
    const std::string fields = SymbolicLink(std::string(4095, 'x'));
    ASSERT_GT(fields.size(), 2 * kSector);

    const std::string areas = image::InAreas(fields, 21 * kSector);

    EXPECT_EQ(areas.size(), image::LengthInAreas(fields));
    EXPECT_EQ(Hex(areas.substr(7 * 255, 4)), "43 45 1C 01");
    EXPECT_TRUE(IsZeros(areas.substr(7 * 255 + 28, kSector - 7 * 255 - 28)));
    EXPECT_EQ(areas.substr(kSector, 7 * 255), fields.substr(7 * 255, 7 * 255));
    EXPECT_EQ(areas.substr(2 * kSector), fields.substr(14 * 255));
}

TEST_F(LinksInIsoTest, AnyPartOfTheImageIsTheSameByItself)
{
    for (int i = 0; i < 40; ++i)
        Link(Repeated("folder/", static_cast<std::size_t>(10 * i + 1)), "link" + std::to_string(i));

    const std::string image = BytesOfTop();

    image::ImageStream stream(Plan());
    for (std::uint64_t at = 0; at < image.size(); at += 1000) {
        const std::size_t length = std::min<std::size_t>(1000, image.size() - at);
        std::string bytes(length, 'x');
        ASSERT_TRUE(stream.Read(at, std::as_writable_bytes(std::span(bytes))));
        ASSERT_TRUE(bytes == image.substr(at, length)) << at;
    }
}

TEST_F(LinksInIsoTest, StrictIsoAndJolietHaveTheFileThatALinkLeadsTo)
{
    Link("file", "link");
    options.strict = true;
    Choose(true, true, false);

    const std::string image = BytesOfTop();

    // ISO 9660 is in sector 21, Joliet in 24, the data in 25.
    EXPECT_EQ(Part(image, 21, 68 + 33, 5), "FILE.");
    EXPECT_EQ(Part(image, 21, 68 + 40 + 33, 5), "LINK.");
    for (const std::size_t record : {21 * kSector + 68, 21 * kSector + 68 + 40})
        EXPECT_EQ(NumberAt(image, record + 2, 4), 25U);
    EXPECT_EQ(NumberAt(image, 21 * kSector + 68 + 40 + 10, 4), 5U);
    EXPECT_EQ(Part(image, 25, 0, 5), "12345");
    EXPECT_TRUE(Plan().LeftOut().empty());
    EXPECT_EQ(Plan().Files(), 2U);
    EXPECT_EQ(Plan().Links(), 0U);
}

TEST_F(LinksInIsoTest, OtherLinksAreLeftOutWhereThereAreNone)
{
    Link("nowhere", "dangling");
    Link(".", "folder");
    Link("/etc/passwd", "outside");
    Link("file", "good");
    Choose(true, true, false);

    BytesOfTop();

    EXPECT_EQ(LeftOut(), (std::vector<std::string> {"1 dangling", "1 folder", "1 outside"}));
    EXPECT_EQ(Plan().LeftOut().front().error.kind, image::ErrorKind::LinkNotHeld);
    EXPECT_EQ(Plan().Links(), 4U);
    EXPECT_EQ(Plan().Files(), 2U); // in Joliet, with the good link
}

TEST_F(LinksInIsoTest, LinkToAFileThatIsTooDeepItselfStillHasItsData)
{
    Write("top/1/2/3/4/5/6/7/8/deep", "treasure");
    Link("1/2/3/4/5/6/7/8/deep", "link");
    options.isoLevel = image::IsoLevel::Level1;
    Choose(true, false, false);

    const std::string image = BytesOfTop();

    EXPECT_NE(image.find("treasure"), std::string::npos);
    const std::size_t record = image.find("LINK.;1") - 33;
    EXPECT_EQ(image.substr(NumberAt(image, record + 2, 4) * kSector, 8), "treasure");
}

} // namespace velmora::test
