// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

using namespace image;

/// Two folders, "one" and "two", for one image.
class TreeMergeTest : public ImageBench {
protected:
    void TakeIn(const std::string& name, const std::string& target = "") const
    {
        const Result<NodeId> directory = tree->FindPath(target);
        ASSERT_TRUE(directory) << target;
        ASSERT_TRUE(ScanFolder(*tree, *directory, (folder / name).native(), IncludeBase::No));
    }

    std::uint64_t SizeOf(const std::string& path) const
    {
        const Result<NodeId> found = tree->FindPath(path);
        return found ? (*tree)[*found].size : 0;
    }

    std::string SourceOf(const std::string& path) const
    {
        const Result<NodeId> found = tree->FindPath(path);
        return found ? tree->SourcePath(*found) : "not there";
    }

    std::uint32_t ChildrenOf(const std::string& path) const
    {
        const Result<NodeId> found = tree->FindPath(path);
        return found ? (*tree)[*found].childCount : 0;
    }

    std::string In(const std::string& name) const { return (folder / name).native(); }
};

TEST_F(TreeMergeTest, DirectoriesOfOneNameAreMerged)
{
    Write("one/sub/a", "1");
    Write("two/sub/b", "22");
    TakeIn("one");
    TakeIn("two");

    EXPECT_EQ(ChildrenOf(""), 1U);
    EXPECT_EQ(ChildrenOf("sub"), 2U);
    EXPECT_EQ(SourceOf("sub/a"), In("one/sub/a"));
    EXPECT_EQ(SourceOf("sub/b"), In("two/sub/b"));
}

TEST_F(TreeMergeTest, NewcomerReplacesAFile)
{
    Write("one/file", "1");
    Write("two/file", "22");
    TakeIn("one");
    TakeIn("two");

    EXPECT_EQ(ChildrenOf(""), 1U);
    EXPECT_EQ(SizeOf("file"), 2U);
    EXPECT_EQ(SourceOf("file"), In("two/file"));
}

TEST_F(TreeMergeTest, NewcomerReplacesAnEntryOfAnotherKind)
{
    Write("one/x/a", "1");
    Write("one/y", "1");
    Write("two/x", "22");
    Write("two/y/b", "333");
    TakeIn("one");
    TakeIn("two");

    EXPECT_EQ(ChildrenOf(""), 2U);
    EXPECT_EQ(SizeOf("x"), 2U);
    EXPECT_FALSE(tree->FindPath("x/a"));
    EXPECT_EQ(SourceOf("y/b"), In("two/y/b"));
}

TEST_F(TreeMergeTest, DeepDirectoriesAreMergedAllTheWayDown)
{
    Write("one/a/b/c/1", "1");
    Write("one/a/x", "1");
    Write("two/a/b/c/2", "22");
    Write("two/a/b/y", "22");
    TakeIn("one");
    TakeIn("two");

    EXPECT_EQ(ChildrenOf("a"), 2U);
    EXPECT_EQ(ChildrenOf("a/b"), 2U);
    EXPECT_EQ(ChildrenOf("a/b/c"), 2U);
    EXPECT_EQ(SourceOf("a/b/c/1"), In("one/a/b/c/1"));
    EXPECT_EQ(SourceOf("a/b/c/2"), In("two/a/b/c/2"));
    EXPECT_EQ(SourceOf("a/b/y"), In("two/a/b/y"));
}

TEST_F(TreeMergeTest, MadeDirectoryTakesAFoldersContentsIn)
{
    Write("one/sub/a", "1");
    AddDirectory("made");
    TakeIn("one", "made");

    EXPECT_EQ(SourceOf("made/sub/a"), In("one/sub/a"));
    EXPECT_TRUE(tree->AddDirectory("made/sub/b", kMoment));
    EXPECT_EQ(ChildrenOf("made/sub"), 2U);
}

TEST_F(TreeMergeTest, FolderByItsNameIsMergedWithTheDirectoryOfThatName)
{
    Write("one/a", "1");
    Write("other/one/b", "22");
    for (const std::string name : {"one", "other/one"}) {
        ASSERT_TRUE(ScanFolder(*tree, SourceTree::kRoot, In(name), IncludeBase::Yes));
    }

    EXPECT_EQ(ChildrenOf(""), 1U);
    EXPECT_EQ(ChildrenOf("one"), 2U);
    EXPECT_EQ(SourceOf("one/b"), In("other/one/b"));
}

TEST_F(TreeMergeTest, FolderByItsNameReplacesAFileOfThatName)
{
    AddFile("one", "1");
    Write("one/a", "22");
    ASSERT_TRUE(ScanFolder(*tree, SourceTree::kRoot, In("one"), IncludeBase::Yes));

    EXPECT_EQ(ChildrenOf(""), 1U);
    EXPECT_EQ(SourceOf("one/a"), In("one/a"));
}

TEST_F(TreeMergeTest, SameFolderTwiceChangesNothing)
{
    Write("one/sub/a", "1");
    Write("one/b", "1");
    TakeIn("one");
    TakeIn("one");

    EXPECT_EQ(ChildrenOf(""), 2U);
    EXPECT_EQ(ChildrenOf("sub"), 1U);
    Choose(true, false, false);
    EXPECT_EQ(Plan().Files(), 2U);
    EXPECT_EQ(Plan().Directories(), 1U);
}

TEST_F(TreeMergeTest, MergedTreeReadsEachFileFromItsOwnFolder)
{
    Write("one/sub/a", "first");
    Write("two/sub/b", "second");
    TakeIn("one");
    TakeIn("two");
    Choose(true, false, false);

    const std::string image = Bytes();

    EXPECT_NE(image.find("first"), std::string::npos);
    EXPECT_NE(image.find("second"), std::string::npos);
}

} // namespace velmora::test
