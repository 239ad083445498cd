// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/SourceTree.h"

#include "tests/platform/image/ImageBench.h"

#include <sys/socket.h>
#include <sys/un.h>

namespace velmora::test {

using namespace image;

/// A tree with the directory "docs" and the file "docs/letter".
class SourceTreeTest : public ImageBench {
protected:
    SourceTreeTest()
    {
        AddDirectory("docs");
        AddFile("docs/letter", "Dear Marie");
    }

    void ExpectFailure(const Result<NodeId>& result, ErrorKind kind, const std::string& path) const
    {
        ASSERT_FALSE(result) << path;
        EXPECT_EQ(result.Failure().kind, kind) << path;
        EXPECT_EQ(result.Failure().path, path);
    }

    std::string Source(const std::string& name) const { return (folder / name).native(); }
};

TEST_F(SourceTreeTest, FileHasSizeTimeAndMode)
{
    const Result<NodeId> file = tree->FindPath("docs/letter");
    ASSERT_TRUE(file);
    const Node& node = (*tree)[*file];

    EXPECT_FALSE(node.IsDirectory());
    EXPECT_EQ(node.size, 10U);
    EXPECT_EQ(node.modifiedSeconds, 1773039904);
    EXPECT_EQ(node.modifiedMicros, 123456U);
    EXPECT_EQ(node.mode, 0644);
    EXPECT_EQ(tree->Name(*file), "letter");
    EXPECT_EQ(tree->ImagePath(*file), "docs/letter");
    EXPECT_EQ(tree->SourcePath(*file), Source("source/docs/letter"));
}

TEST_F(SourceTreeTest, MadeDirectoryComesFromNowhere)
{
    const Result<NodeId> directory = tree->FindPath("docs");
    ASSERT_TRUE(directory);

    EXPECT_TRUE((*tree)[*directory].IsDirectory());
    EXPECT_EQ((*tree)[*directory].childCount, 1U);
    EXPECT_EQ((*tree)[*directory].mode, 0755);
    EXPECT_EQ(tree->SourcePath(*directory), "");
}

TEST_F(SourceTreeTest, EmptyPathIsTheRoot)
{
    const Result<NodeId> root = tree->FindPath("");
    ASSERT_TRUE(root);
    EXPECT_EQ(*root, SourceTree::kRoot);
    EXPECT_EQ(tree->ImagePath(*root), "");
}

TEST_F(SourceTreeTest, PathThatLeadsNowhereIsNotFound)
{
    ExpectFailure(tree->FindPath("nothing"), ErrorKind::ItemNotFound, "nothing");
    ExpectFailure(tree->FindPath("docs/nothing"), ErrorKind::ItemNotFound, "docs/nothing");
    ExpectFailure(tree->FindPath("docs/letter/x"), ErrorKind::ItemNotFound, "docs/letter/x");
    ExpectFailure(tree->FindPath("Docs"), ErrorKind::ItemNotFound, "Docs"); // case counts
}

TEST_F(SourceTreeTest, MalformedPathIsInvalid)
{
    for (const std::string path : {"/docs", "docs/", "docs//letter", "docs/.", "..", "/"}) {
        ExpectFailure(tree->FindPath(path), ErrorKind::InvalidPath, path);
    }
    ExpectFailure(
        tree->FindPath(std::string("a\0b", 3)), ErrorKind::InvalidPath, std::string("a\0b", 3));
    ExpectFailure(
        tree->FindPath(std::string(256, 'x')), ErrorKind::InvalidPath, std::string(256, 'x'));
}

TEST_F(SourceTreeTest, NameOf255BytesIsTheLongest)
{
    EXPECT_TRUE(tree->AddDirectory(std::string(255, 'x'), kMoment));
    ExpectFailure(tree->AddDirectory(std::string(256, 'x'), kMoment),
        ErrorKind::InvalidPath,
        std::string(256, 'x'));
}

TEST_F(SourceTreeTest, DirectoryWithABadPathIsNotAdded)
{
    const auto add = [this](const std::string& path) { return tree->AddDirectory(path, kMoment); };

    ExpectFailure(add(""), ErrorKind::InvalidPath, "");
    ExpectFailure(add("/a"), ErrorKind::InvalidPath, "/a");
    ExpectFailure(add("a/"), ErrorKind::InvalidPath, "a/");
    ExpectFailure(add("docs//a"), ErrorKind::InvalidPath, "docs//a");
    ExpectFailure(add("docs/.."), ErrorKind::InvalidPath, "docs/..");
    ExpectFailure(add("none/a"), ErrorKind::DirectoryNotFound, "none/a");
    ExpectFailure(add("docs/letter/a"), ErrorKind::NotADirectory, "docs/letter/a");
    ExpectFailure(add("docs"), ErrorKind::NameTaken, "docs");
    ExpectFailure(add("docs/letter"), ErrorKind::NameTaken, "docs/letter");
    EXPECT_EQ((*tree)[SourceTree::kRoot].childCount, 1U);
}

TEST_F(SourceTreeTest, FileWithABadPathIsNotAdded)
{
    const auto add = [this](const std::string& path) {
        return tree->AddFile(path, Source("source/docs/letter"));
    };

    ExpectFailure(add("none/a"), ErrorKind::DirectoryNotFound, "none/a");
    ExpectFailure(add("docs/letter/a"), ErrorKind::NotADirectory, "docs/letter/a");
    ExpectFailure(add("docs"), ErrorKind::NameTaken, "docs");
    ExpectFailure(add("./a"), ErrorKind::InvalidPath, "./a");
}

TEST_F(SourceTreeTest, SourceThatIsNoFileIsNotAdded)
{
    ASSERT_EQ(::mkfifo(Source("pipe").c_str(), 0644), 0);

    ExpectFailure(tree->AddFile("a", Source("missing")), ErrorKind::NotFound, Source("missing"));
    ExpectFailure(tree->AddFile("a", Source("pipe")), ErrorKind::SpecialFile, Source("pipe"));
    ExpectFailure(tree->AddFile("a", "/dev/null"), ErrorKind::SpecialFile, "/dev/null");
    ExpectFailure(tree->AddFile("a", Source("source")), ErrorKind::FileNotOpened, Source("source"));
    EXPECT_EQ((*tree)[SourceTree::kRoot].childCount, 1U);
}

TEST_F(SourceTreeTest, LinkIsAddedAsALinkWhereverItLeads)
{
    for (const std::string target : {"source/docs/letter", "source", "nowhere", "/dev/null"}) {
        ASSERT_EQ(::symlink(target.c_str(), Source("link").c_str()), 0);

        const Result<NodeId> link = tree->AddFile("a", Source("link"));

        ASSERT_TRUE(link) << target;
        EXPECT_EQ((*tree)[*link].kind, NodeKind::Link);
        EXPECT_EQ((*tree)[*link].size, 0U);
        EXPECT_EQ(tree->LinkText(*link), target);
        tree->Remove(*link);
        std::filesystem::remove(Source("link"));
    }
}

TEST_F(SourceTreeTest, RemovedNodeIsNotFoundAnyMore)
{
    const Result<NodeId> directory = tree->FindPath("docs");
    ASSERT_TRUE(directory);

    tree->Remove(*directory);

    EXPECT_FALSE(tree->FindPath("docs"));
    EXPECT_FALSE(tree->FindPath("docs/letter"));
    EXPECT_EQ((*tree)[SourceTree::kRoot].childCount, 0U);
    EXPECT_TRUE(tree->AddDirectory("docs", kMoment)); // its name is free again
}

TEST_F(SourceTreeTest, ManyNodesKeepTheirPlaces)
{
    for (int i = 0; i < 3000; ++i) { // several of the blocks that nodes are kept in
        ASSERT_TRUE(tree->AddDirectory("docs/" + std::to_string(i), kMoment));
    }
    for (const int i : {0, 1021, 1022, 1023, 2999}) {
        const Result<NodeId> found = tree->FindPath("docs/" + std::to_string(i));
        ASSERT_TRUE(found) << i;
        EXPECT_EQ(tree->ImagePath(*found), "docs/" + std::to_string(i));
    }
}

TEST_F(SourceTreeTest, DirectoryMadeInAScannedOneComesFromNowhere)
{
    tree = std::make_shared<SourceTree>(kMoment);
    Scan(folder / "source");

    const Result<NodeId> made = tree->AddDirectory("docs/made", kMoment);

    ASSERT_TRUE(made);
    EXPECT_EQ(tree->SourcePath(*made), "");
}

} // namespace velmora::test
