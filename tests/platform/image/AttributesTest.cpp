// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/Attributes.h"

#include "image/source/FileFacts.h"
#include "tests/platform/image/UdfBench.h"

namespace velmora::test {

using namespace image;

namespace {

// PX (RRIP 4.1.1) from its mode on: mode, links, owner and group, each in both orders.
const std::string kOneName = "01 00 00 00 00 00 00 01 ";
const std::string kOfNobody = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
const std::string kOfItsOwner = "E8 03 00 00 00 00 03 E8 64 00 00 00 00 00 00 64"; // 1000, 100

NodeFacts FactsLike(NodeKind kind, std::uint16_t mode)
{
    NodeFacts facts;
    facts.kind = kind;
    facts.mode = mode;
    facts.owner = {1000, 100};
    facts.modified = kMoment;
    return facts;
}

} // namespace

/// Another user's set-uid program, in another user's folder that everybody may write to.
class AttributesTest : public ImageBench {
protected:
    AttributesTest()
    {
        AddDirectory("DIR");
        tree->SetFacts(*tree->FindPath("DIR"), FactsLike(NodeKind::Directory, 03730));
        AddFile("DIR/RUN", "");
        const Result<NodeFacts> found = LookBehind((folder / "source/DIR/RUN").c_str());
        NodeFacts facts = *found; // the file itself, to be read
        facts.mode = 04710;
        facts.owner = {1000, 100};
        tree->SetFacts(*tree->FindPath("DIR/RUN"), facts);
        AddDirectory("MADE");
    }

    Attributes Of(const std::string& path, Rights rights) const
    {
        return AttributeRules(*tree, rights, std::nullopt).Of(*tree->FindPath(path));
    }
};

TEST_F(AttributesTest, OnADiscForEverybodyAllMayReadAndNobodyRunsAsTheOwner)
{
    EXPECT_EQ(Of("DIR", Rights::OfEverybody).mode, 0775);
    EXPECT_EQ(Of("DIR/RUN", Rights::OfEverybody).mode, 0754);
    EXPECT_EQ(Of("DIR/RUN", Rights::OfEverybody).owner, Owner {});
    EXPECT_EQ(Of("MADE", Rights::OfEverybody).mode, 0755);
}

TEST_F(AttributesTest, KeptAttributesAreThoseOfTheSource)
{
    EXPECT_EQ(Of("DIR", Rights::OfSource).mode, 03730);
    EXPECT_EQ(Of("DIR/RUN", Rights::OfSource).mode, 04710);
    EXPECT_EQ(Of("DIR/RUN", Rights::OfSource).owner, (Owner {1000, 100}));
    EXPECT_EQ(Of("MADE", Rights::OfSource).mode, 0755);
    EXPECT_EQ(Of("MADE", Rights::OfSource).owner, Owner {});
}

TEST_F(AttributesTest, ATreeRemembersAsManyOwnersAsItHas)
{
    constexpr std::uint32_t kOwners = 65'534; // and 0, that of the root
    std::vector<NodeId> nodes;
    for (std::uint32_t user = 1; user <= kOwners + 2; ++user) {
        NodeFacts facts = FactsLike(NodeKind::File, 0644);
        facts.owner = {user, 7};
        nodes.push_back(tree->NewNode((*tree)[SourceTree::kRoot].name, facts));
    }
    EXPECT_EQ(tree->OwnerOf(nodes.front()), (Owner {1, 7}));
    EXPECT_EQ(tree->OwnerOf(nodes[kOwners - 3]), (Owner {kOwners - 2, 7}));
    EXPECT_EQ(tree->OwnerOf(nodes.back()), (Owner {65534, 65534})) << "nobody";
}

TEST_F(AttributesTest, RockRidgeRecordsThemOneWayOrTheOther)
{
    Choose(true, false, false);

    const std::string shared = Bytes(); // DIR in 22, its "RUN" after two of 82
    EXPECT_EQ(
        HexOf(shared, 22, 164 + 40 + 4, 32), "EC 81 00 00 00 00 81 EC " + kOneName + kOfNobody);

    options.rights = Rights::OfSource;
    EXPECT_EQ(
        HexOf(Bytes(), 22, 164 + 40 + 4, 32), "C8 89 00 00 00 00 89 C8 " + kOneName + kOfItsOwner);
}

TEST_F(AttributesTest, UdfRecordsThemOneWayOrTheOther)
{
    Choose(false, false, true);

    const std::string shared = Bytes(); // the root's entry in 259, DIR's, MADE's, RUN's
    EXPECT_EQ(HexOf(shared, 262, 34, 14), "00 00 FF FF FF FF FF FF FF FF A4 14 00 00"); // r-xr-xr--
    EXPECT_EQ(HexOf(shared, 260, 44, 4), "A5 14 00 00");

    options.rights = Rights::OfSource;
    const std::string kept = Bytes();
    EXPECT_EQ(HexOf(kept, 262, 34, 14), "40 00 E8 03 00 00 64 00 00 00 20 1C 00 00"); // rws--x---
    EXPECT_EQ(HexOf(kept, 260, 34, 14), "80 01 E8 03 00 00 64 00 00 00 60 1C 00 00"); // rwx-ws--T
}

TEST_F(AttributesTest, TimesLaterThanTheLatestAreRecordedAsThat)
{
    NodeFacts old = FactsLike(NodeKind::File, 0644);
    old.modified = {1'000'000'000, 5};
    tree->SetFacts(*tree->FindPath("DIR/RUN"), old);

    const AttributeRules rules(*tree, Rights::OfEverybody, TimeStamp {1'500'000'000, 0});

    EXPECT_EQ(rules.Of(*tree->FindPath("DIR")).modified, (TimeStamp {1'500'000'000, 0}));
    EXPECT_EQ(rules.Of(*tree->FindPath("DIR/RUN")).modified, (TimeStamp {1'000'000'000, 5}));
}

TEST_F(AttributesTest, LatestTimeHoldsInEveryFileSystem)
{
    const std::string moment = Hex(std::string_view("\x7E\x03\x09\x07\x05\x04", 6)); // kMoment
    EXPECT_NE(Hex(Bytes()).find(moment), std::string::npos);

    options.latest = TimeStamp {1'500'000'000, 0};
    options.created = *options.latest;
    const std::string image = Hex(Bytes());

    EXPECT_EQ(image.find(moment), std::string::npos);
    EXPECT_EQ(image.find(kUdfMoment), std::string::npos);
}

} // namespace velmora::test
