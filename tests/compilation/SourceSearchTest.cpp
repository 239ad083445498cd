// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/SourceSearch.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace velmora;
using namespace Qt::StringLiterals;
using compilation::EntryKind;

namespace {

/// A list with a folder, which holds a file and a link, and a file from elsewhere.
class SourceSearchTest : public testing::Test {
protected:
    SourceSearchTest()
    {
        folder_.MakeFile("source/sub/inside.iso", 10);
        folder_.MakeFile("row.iso", 10);
        folder_.MakeFile("other.iso", 10);
        std::filesystem::create_symlink("../other.iso", folder_ / "source/link.iso");
        Add("source", EntryKind::Directory);
        Add("row.iso", EntryKind::File);
        compilation::ListRow& made = list_.Add(u"made"_s, text::DiscPath(u"made\\"_s), {});
        list_.SetKind(made, EntryKind::Directory);
        Add("gone", EntryKind::Directory);
        Add("gone.iso", EntryKind::File);
    }

    void Add(const char* name, EntryKind kind)
    {
        const QString text = QString::fromUtf8(name);
        compilation::ListRow& row = list_.Add(text, text::DiscPath(text), {});
        list_.SetKind(row, kind);
        list_.SetOrigin(row, PathOf(name));
    }

    text::ProgramPath PathOf(const char* name) const
    {
        return text::ProgramPath(text::ToProgramPath((folder_ / name).native()));
    }

    bool IsSource(const char* name) const
    {
        return compilation::IsSource(list_, PathOf(name), [] {});
    }

    test::TemporaryFolder folder_;
    compilation::CompilationList list_;
};

} // namespace

TEST_F(SourceSearchTest, FilesOfFoldersAndFilesThatWereAddedAreSources)
{
    EXPECT_TRUE(IsSource("source/sub/inside.iso"));
    EXPECT_TRUE(IsSource("row.iso"));
}

TEST_F(SourceSearchTest, OthersAreNot)
{
    EXPECT_FALSE(IsSource("other.iso")) << "a link of the folder leads there, and stays one";
    EXPECT_FALSE(IsSource("new.iso"));
    EXPECT_FALSE(IsSource("gone.iso"));
}

TEST_F(SourceSearchTest, AFileIsASourceUnderEachOfItsNames)
{
    std::filesystem::create_hard_link(folder_ / "source/sub/inside.iso", folder_ / "hard.iso");
    std::filesystem::create_symlink("source/sub/inside.iso", folder_ / "soft.iso");
    std::filesystem::create_directory_symlink("source/sub", folder_ / "way");

    EXPECT_TRUE(IsSource("hard.iso"));
    EXPECT_TRUE(IsSource("soft.iso"));
    EXPECT_TRUE(IsSource("way/inside.iso"));
}

TEST_F(SourceSearchTest, ALinkThatIsTakenAsSuchIsASource)
{
    EXPECT_TRUE(IsSource("source/link.iso"));
}
