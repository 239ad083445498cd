// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/LinkFollower.h"

#include "tests/platform/image/ImageBench.h"

#include <set>
#include <vector>

namespace velmora::test {

using namespace image;

/// A folder "top" whose links are followed.
class LinkFollowerTest : public ImageBench {
protected:
    LinkFollowerTest() { folder.MakeFolder("top"); }

    void Link(const std::string& text, const std::string& name) const
    {
        ASSERT_EQ(::symlink(text.c_str(), (folder / name).c_str()), 0) << name;
    }

    void Follow(const ScanOptions& how = {})
    {
        tree = std::make_shared<SourceTree>(kMoment);
        report = Scan(folder / "top");
        LinkFollower follower((folder / "top").native());
        follower.Know(*tree, SourceTree::kRoot);
        EXPECT_TRUE(follower.Follow(*tree, SourceTree::kRoot, report, how));
    }

    /// All paths of the image, directories with a trailing slash.
    std::set<std::string> Paths() const
    {
        std::set<std::string> paths;
        std::vector<NodeId> waiting {SourceTree::kRoot};
        while (!waiting.empty()) {
            const NodeId directory = waiting.back();
            waiting.pop_back();
            for (NodeId id = (*tree)[directory].firstChild; id != kNoNode;
                 id = (*tree)[id].nextSibling) {
                paths.insert(tree->ImagePath(id) + ((*tree)[id].IsDirectory() ? "/" : ""));
                if ((*tree)[id].IsDirectory()) waiting.push_back(id);
            }
        }
        return paths;
    }

    using Told = std::vector<std::pair<std::string, ErrorKind>>;
    /// What was left out, by its path within "top".
    Told LeftOut() const
    {
        Told all;
        for (const Error& error : report.leftOut)
            all.emplace_back(error.path.substr((folder / "top/").native().size()), error.kind);
        return all;
    }

    using Set = std::set<std::string>;
    ScanReport report;
};

TEST_F(LinkFollowerTest, LinksBecomeTheFilesAndFoldersThatTheyLeadTo)
{
    Write("outside/sub/x", "12");
    Write("top/file", "123");
    Link("file", "top/same");
    Link("../outside", "top/folder");
    Link("../outside/sub/x", "top/x");

    Follow();

    EXPECT_EQ(Paths(), (Set {"file", "same", "folder/", "folder/sub/", "folder/sub/x", "x"}));
    EXPECT_TRUE(report.leftOut.empty());
    EXPECT_EQ(report.files, 4U);
    EXPECT_EQ(report.directories, 2U);
    EXPECT_EQ(report.links, 0U);
    EXPECT_EQ(report.bytes, 3U + 3 + 2 + 2);
    EXPECT_TRUE(tree->Links().empty());
    EXPECT_EQ(Plan().Links(), 0U);
    EXPECT_NE(Bytes().find("123"), std::string::npos);
}

TEST_F(LinkFollowerTest, FilesShareTheirBytesWithTheirTargets)
{
    Write("top/file", "recorded once");
    Link("file", "top/link");

    Follow();

    const std::string image = Bytes();
    const std::size_t first = image.find("recorded once");
    EXPECT_NE(first, std::string::npos);
    EXPECT_EQ(image.find("recorded once", first + 1), std::string::npos);
    EXPECT_EQ(Plan().Files(), 2U);
}

TEST_F(LinkFollowerTest, RealFolderComesBeforeALinkToIt)
{
    Write("top/z/x", "");
    Link("z", "top/a");
    Link("../z", "top/z/again");

    Follow();

    EXPECT_EQ(Paths(), (Set {"z/", "z/x"}));
    EXPECT_EQ(
        LeftOut(), (Told {{"a", ErrorKind::FolderTaken}, {"z/again", ErrorKind::FolderTaken}}));
}

TEST_F(LinkFollowerTest, FolderOutsideIsTakenOnceByTheFirstPath)
{
    Write("outside/sub/x", "");
    Link("../outside", "top/one");
    Link("../outside", "top/two");
    Link("../outside/sub", "top/three");

    Follow();

    EXPECT_EQ(Paths(), (Set {"one/", "one/sub/", "one/sub/x"}));
    EXPECT_EQ(
        LeftOut(), (Told {{"three", ErrorKind::FolderTaken}, {"two", ErrorKind::FolderTaken}}));
}

TEST_F(LinkFollowerTest, FolderInAFolderIsNotTakenAgain)
{
    Write("outside/sub/x", "");
    Write("outside/y", "");
    Link("../outside/sub", "top/a");
    Link("../outside", "top/b");

    Follow();

    EXPECT_EQ(Paths(), (Set {"a/", "a/x", "b/", "b/y"}));
    EXPECT_EQ(LeftOut(), (Told {{"b/sub", ErrorKind::FolderTaken}}));
}

TEST_F(LinkFollowerTest, LinksInWhatLinksLeadToAreFollowedToo)
{
    Write("far/x", "");
    Write("near/y", "");
    Link("../far", "near/on");
    Link("../top", "near/back");
    Link("../near", "top/a");

    Follow();

    EXPECT_EQ(Paths(), (Set {"a/", "a/y", "a/on/", "a/on/x"}));
    EXPECT_EQ(LeftOut(), (Told {{"a/back", ErrorKind::LinkCycle}}));
}

TEST_F(LinkFollowerTest, WhatHoldsTheSourceAndWhatTheSystemShowsIsNeverTaken)
{
    Link("/", "top/root");
    Link("..", "top/above");
    Link(".", "top/self");
    Link("/proc", "top/proc");
    Link("/proc/self/status", "top/status");
    Link("/sys/kernel", "top/sys");
    Link("/dev/null", "top/null");
    Link("/dev", "top/dev");
    // A container may show none of it.
    const bool isShown = std::filesystem::exists("/sys/kernel");

    Follow();

    EXPECT_TRUE(Paths().empty());
    EXPECT_EQ(LeftOut(),
        (Told {{"above", ErrorKind::LinkCycle},
            {"dev", ErrorKind::LinkToSystem},
            {"null", ErrorKind::SpecialFile},
            {"proc", ErrorKind::LinkToSystem},
            {"root", ErrorKind::LinkCycle},
            {"self", ErrorKind::LinkCycle},
            {"status", ErrorKind::LinkToSystem},
            {"sys", isShown ? ErrorKind::LinkToSystem : ErrorKind::DanglingLink}}));
}

TEST_F(LinkFollowerTest, LinksThatLeadNowhereAreTold)
{
    Link("missing", "top/dangling");
    Link("loop", "top/loop");

    Follow();

    EXPECT_EQ(LeftOut(),
        (Told {{"dangling", ErrorKind::DanglingLink}, {"loop", ErrorKind::DanglingLink}}));
}

TEST_F(LinkFollowerTest, FoldersThatAllLinkToEachOtherEnd)
{
    for (int i = 0; i < 8; ++i) {
        Write("top/d" + std::to_string(i) + "/file", "x");
        for (int k = 0; k < 8; ++k)
            Link(
                "../d" + std::to_string(k), "top/d" + std::to_string(i) + "/l" + std::to_string(k));
    }

    Follow();

    EXPECT_EQ(report.files, 8U);
    EXPECT_EQ(report.directories, 8U);
    EXPECT_EQ(report.leftOut.size(), 64U);
}

TEST_F(LinkFollowerTest, OutsideItEndsTooAndGivesTheSameTreeEachTime)
{
    for (int i = 0; i < 12; ++i) {
        Write("out/d" + std::to_string(i) + "/file", "x");
        for (int k = 0; k < 12; ++k)
            Link(
                "../d" + std::to_string(k), "out/d" + std::to_string(i) + "/l" + std::to_string(k));
    }
    Link("../out/d7", "top/in");

    Follow();
    const Set first = Paths();
    Follow({.threads = 4});

    EXPECT_EQ(Paths(), first);
    EXPECT_EQ(report.files, 12U);
    EXPECT_EQ(report.directories, 12U);
}

TEST_F(LinkFollowerTest, StopIsHeard)
{
    Write("outside/x", "");
    Link("../outside", "top/a");
    tree = std::make_shared<SourceTree>(kMoment);
    report = Scan(folder / "top");
    LinkFollower follower((folder / "top").native());

    const Result<> followed = follower.Follow(
        *tree, SourceTree::kRoot, report, {.progress = [](const ScanProgress&) { return false; }});

    ASSERT_FALSE(followed);
    EXPECT_EQ(followed.Failure().kind, ErrorKind::Cancelled);
}

} // namespace velmora::test
