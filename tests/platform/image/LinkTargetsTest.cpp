// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/LinkTargets.h"

#include "tests/platform/image/ImageBench.h"

#include <vector>

namespace velmora::test {

using namespace image;

/// A tree with "file", "docs/letter" and "docs/old/".
class LinkTargetsTest : public ImageBench {
protected:
    LinkTargetsTest()
    {
        Write("top/file", "12345");
        Write("top/docs/letter", "123");
        folder.MakeFolder("top/docs/old");
    }

    void Link(const std::string& text, const std::string& name) const
    {
        ASSERT_EQ(::symlink(text.c_str(), (folder / "top" / name).c_str()), 0) << name;
    }

    /// The path in the image of the file behind a link, "-" for none.
    std::string FileBehind(const std::string& link) const
    {
        const NodeId file = LinkTargets(*tree).FileBehind(*tree->FindPath(link));
        return file == kNoNode ? "-" : tree->ImagePath(file);
    }

    std::vector<std::string> LeadingOut() const
    {
        std::vector<std::string> paths;
        const LinkTargets targets(*tree);
        for (const NodeId link : targets.LeadingOut())
            paths.push_back(tree->ImagePath(link));
        return paths;
    }
};

TEST_F(LinkTargetsTest, FileOfTheTreeIsFoundHoweverItIsNamed)
{
    struct Row {
        std::string link;
        std::string text;
        std::string file;
    };
    const std::vector<Row> rows {
        {"a", "file", "file"},
        {"b", "./docs//letter", "docs/letter"},
        {"c", "docs/old/../letter", "docs/letter"},
        {"docs/d", "../file", "file"},
        {"docs/old/e", "../../docs/letter", "docs/letter"},
        {"f", "docs", "-"},
        {"g", "missing", "-"},
        {"h", "file/.", "-"},
        {"i", "file/..", "-"},
        {"j", "docs/missing/../letter", "-"},
    };
    for (const Row& row : rows)
        Link(row.text, row.link);
    Scan(folder / "top");

    for (const Row& row : rows)
        EXPECT_EQ(FileBehind(row.link), row.file) << row.text;
    EXPECT_TRUE(LeadingOut().empty());
}

TEST_F(LinkTargetsTest, LinksInARowAndOnTheWayAreFollowed)
{
    Link("second", "first");
    Link("third", "second");
    Link("file", "third");
    Link("docs", "folder");
    Link("folder/old", "inner");
    Link("inner/../letter", "far"); // where ".." begins at the real folder
    Scan(folder / "top");

    EXPECT_EQ(FileBehind("first"), "file");
    EXPECT_EQ(FileBehind("far"), "docs/letter");
}

TEST_F(LinkTargetsTest, LinksThatTurnInCirclesLeadToNothing)
{
    Link("self", "self");
    Link("pong", "ping");
    Link("ping", "pong");
    Link("more/more", "more");
    Scan(folder / "top");

    for (const char* link : {"self", "ping", "pong", "more"})
        EXPECT_EQ(FileBehind(link), "-") << link;
    EXPECT_TRUE(LeadingOut().empty());
}

TEST_F(LinkTargetsTest, NoMoreThanFortyLinksAreFollowed)
{
    Link("file", "1");
    for (int i = 2; i <= 41; ++i)
        Link(std::to_string(i - 1), std::to_string(i));
    Scan(folder / "top");

    EXPECT_EQ(FileBehind("40"), "file");
    EXPECT_EQ(FileBehind("41"), "-");
}

TEST_F(LinkTargetsTest, LinksThatLeadOutAreNamedInOrder)
{
    Link("/etc/passwd", "z");
    Link("..", "a");
    Link("docs/../../top/file", "m"); // out and in again: the disc has no "top"
    Link("z", "chain");
    Link("docs/letter", "inside");
    Scan(folder / "top");

    EXPECT_EQ(LeadingOut(), (std::vector<std::string> {"a", "chain", "m", "z"}));
    EXPECT_EQ(FileBehind("m"), "-");
}

TEST_F(LinkTargetsTest, LinksThatWereReplacedCountNoMore)
{
    Link("/etc", "z");
    Scan(folder / "top");
    Write("other/z", "");
    Scan(folder / "other");

    EXPECT_EQ((*tree)[*tree->FindPath("z")].kind, NodeKind::File);
    EXPECT_TRUE(LeadingOut().empty());
}

TEST_F(LinkTargetsTest, NamesOfALinkAreThoseBetweenItsSlashes)
{
    using Views = std::vector<std::string_view>;
    EXPECT_EQ(NamesOfLink("a"), (Views {"a"}));
    EXPECT_EQ(NamesOfLink("/a//b/"), (Views {"a", "b"}));
    EXPECT_EQ(NamesOfLink(".././a"), (Views {"..", ".", "a"}));
    EXPECT_EQ(NamesOfLink("///"), (Views {}));
}

} // namespace velmora::test
