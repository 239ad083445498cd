// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/NativeSourceFiles.h"
#include "tests/support/AccessTimes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unprivileged.h"
#include "text/PathText.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using test::ErrorNumberOf;
namespace fs = std::filesystem;

namespace {

class SourceFilesTest : public testing::Test {
protected:
    text::ProgramPath Program(const std::string& name) const
    {
        return text::ToProgramPath(text::NativePath((folder / name).native()));
    }
    double FolderSize(const std::string& name = "")
    {
        return files.ContentsOf(Program(name)).bytes;
    }
    double FileSize(const std::string& name) { return files.FileSize(Program(name)); }

    test::TemporaryFolder folder;
    compilation::NativeSourceFiles files;
};

class FolderSizeTest : public SourceFilesTest { };
class FileSizeTest : public SourceFilesTest { };
class FindingTest : public SourceFilesTest { };
class BeginningTest : public SourceFilesTest { };

} // namespace

TEST_F(SourceFilesTest, AReadingIsInterruptedWhereverItStands)
{
    folder.MakeFile("sub/a", 1);
    bool goesOn = true;
    compilation::NativeSourceFiles asking([&goesOn] { return goesOn; });
    EXPECT_EQ(asking.ContentsOf(Program("")).bytes, 1);
    EXPECT_EQ(asking.Names(Program("")), (QStringList {u"sub"_s}));
    goesOn = false;
    EXPECT_EQ(ErrorNumberOf([&] { asking.Names(Program("")); }), compilation::kInterrupted);
    EXPECT_EQ(
        ErrorNumberOf([&] { asking.IsDirectory(Program("sub")); }), compilation::kInterrupted);
    EXPECT_EQ(ErrorNumberOf([&] { asking.ContentsOf(Program("")); }), compilation::kInterrupted);
}

TEST_F(SourceFilesTest, HiddenNamesAreListedApartOrWithTheOthers)
{
    for (const char* name : {"b", ".Config", "a", ".bashrc", "..."}) {
        folder.MakeFile(name, 1);
    }
    EXPECT_EQ(files.Names(Program("")), (QStringList {u"a"_s, u"b"_s}));
    EXPECT_EQ(files.HiddenNames(Program("")), (QStringList {u"..."_s, u".bashrc"_s, u".Config"_s}));
    EXPECT_EQ(files.HiddenNames(Program("gone")), QStringList());
    files.TakeHidden();
    EXPECT_EQ(files.Names(Program("")),
        (QStringList {u"..."_s, u".bashrc"_s, u".Config"_s, u"a"_s, u"b"_s}));
    EXPECT_EQ(files.HiddenNames(Program("")), QStringList());
}

TEST_F(SourceFilesTest, AccessTimesStayAsTheyAre)
{
    folder.MakeFile("sub/a", 1);
    for (const char* name : {"sub/a", "sub"}) {
        test::MakeAccessFormer(folder / name);
    }

    EXPECT_EQ(files.Names(Program("sub")), QStringList {u"a"_s});
    EXPECT_EQ(files.HiddenNames(Program("sub")), QStringList());
    EXPECT_EQ(files.Beginning(Program("sub/a"), 10).size(), 1);
    EXPECT_EQ(FolderSize("sub"), 1);

    for (const char* name : {"sub/a", "sub"}) {
        EXPECT_TRUE(test::IsAccessFormer(folder / name)) << name;
    }
}

TEST_F(FolderSizeTest, ANameThatEndsInABlankIsItsOwn)
{
    folder.MakeFile("trail/a", 1);
    folder.MakeFile("trail /b", 20);
    EXPECT_EQ(FolderSize("trail"), 1);
    EXPECT_EQ(FolderSize("trail "), 20);
    EXPECT_EQ(FolderSize("trail /"), 20);
}

TEST_F(FolderSizeTest, EveryFileOfTheTreeCountsHiddenOnesToo)
{
    folder.MakeFile("a", 1);
    folder.MakeFile(".hidden", 20);
    folder.MakeFile("sub/b", 300);
    folder.MakeFile("sub/.deep/.c", 4000);
    folder.MakeFolder("empty");
    EXPECT_EQ(FolderSize(), 4321);
}

TEST_F(FolderSizeTest, SizesAreApparentAndPastFourGigabytes)
{
    folder.MakeFile("a", 4700000001);
    folder.MakeFile("b", 4700000001);
    EXPECT_EQ(FolderSize(), 9400000002);
}

TEST_F(FolderSizeTest, HardLinksCountEachTime)
{
    folder.MakeFile("a", 100);
    fs::create_hard_link(folder / "a", folder / "b");
    EXPECT_EQ(FolderSize(), 200);
}

TEST_F(FolderSizeTest, FilesAndFoldersAreCountedWithLinksAsFiles)
{
    folder.MakeFile("tree/a", 1);
    folder.MakeFile("tree/.hidden", 1);
    folder.MakeFile("tree/sub/below/b", 1);
    std::filesystem::create_symlink("a", folder / "tree/link");
    const compilation::FolderContents found = files.ContentsOf(Program("tree"));
    EXPECT_EQ(found.files, 4);
    EXPECT_EQ(found.folders, 2);
}

TEST_F(FolderSizeTest, LinksCountNothing)
{
    folder.MakeFile("outside/a", 100);
    folder.MakeFolder("tree");
    fs::create_symlink("../outside/a", folder / "tree/file");
    fs::create_directory_symlink("../outside", folder / "tree/folder");
    EXPECT_EQ(FolderSize("tree"), 0);
}

TEST_F(FolderSizeTest, LinksThatAreFollowedCountWhatTheyLeadToEachFolderOnce)
{
    folder.MakeFile("outside/a", 100);
    folder.MakeFile("tree/sub/b", 20);
    folder.MakeFile("tree/c", 3);
    fs::create_directory_symlink("../../outside", folder / "tree/sub/one");
    fs::create_directory_symlink("../outside", folder / "tree/two");
    fs::create_directory_symlink("sub", folder / "tree/again");
    fs::create_symlink("c", folder / "tree/file");
    fs::create_symlink("nowhere", folder / "tree/dangling");
    files.FollowLinks(Program("tree"));
    EXPECT_EQ(FolderSize("tree/sub"), 120);
    EXPECT_EQ(FileSize("tree/two"), 0) << "taken with the folder";
    EXPECT_EQ(FileSize("tree/again"), 0);
    EXPECT_EQ(FileSize("tree/file"), 3);
    EXPECT_EQ(FileSize("tree/dangling"), 0);
}

TEST_F(FolderSizeTest, AFolderThatIsNamedByALinkHasItsSize)
{
    folder.MakeFile("tree/a", 100);
    fs::create_directory_symlink("tree", folder / "link");
    EXPECT_EQ(FolderSize("link"), 100);
}

TEST_F(FolderSizeTest, CyclesDanglingLinksAndSpecialFilesCountNothing)
{
    folder.MakeFile("a", 1);
    fs::create_directory_symlink(".", folder / "cycle");
    fs::create_symlink("nowhere", folder / "dangling");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(FolderSize(), 1);
}

TEST_F(FolderSizeTest, AMissingFolderIsError76AndSoIsAFile)
{
    folder.MakeFile("a", 1);
    EXPECT_EQ(ErrorNumberOf([&] { FolderSize("gone"); }), 76);
    EXPECT_EQ(ErrorNumberOf([&] { FolderSize("a"); }), 76);
}

TEST_F(FolderSizeTest, AnUnreadableFolderCountsNothingWhereverItIs)
{
    fs::permissions(folder.Path(), fs::perms::all);
    folder.MakeFile("tree/sub/closed/a", 1);
    folder.MakeFile("tree/sub/b", 20);
    folder.MakeFile("tree/c", 300);
    fs::permissions(folder / "tree/sub/closed", fs::perms::none);
    const test::Unprivileged nobody;
    EXPECT_EQ(FolderSize("tree"), 320);
    EXPECT_EQ(FolderSize("tree/sub/closed"), 0);
    EXPECT_EQ(FolderSize("tree/sub/closed/a"), 0);
}

TEST_F(FolderSizeTest, AnUnreadableFileHasItsSize)
{
    fs::permissions(folder.Path(), fs::perms::all);
    fs::permissions(folder.MakeFile("closed", 50), fs::perms::none);
    const test::Unprivileged nobody;
    EXPECT_EQ(FolderSize(), 50);
}

TEST_F(FolderSizeTest, ManyFoldersAreSummedExactly)
{
    double expected = 0;
    for (int i = 0; i < 300; ++i) {
        folder.MakeFile("d" + std::to_string(i % 30) + "/e" + std::to_string(i) + "/f",
            static_cast<std::uintmax_t>(i));
        expected += i;
    }
    EXPECT_EQ(FolderSize(), expected);
}

TEST_F(FileSizeTest, AFilesBytesAreCounted)
{
    folder.MakeFile("a", 1500);
    folder.MakeFile("large", 4700000001);
    EXPECT_EQ(FileSize("a"), 1500);
    EXPECT_EQ(FileSize("large"), 4700000001);
}

TEST_F(FileSizeTest, NothingThereOrAFolderIsError53)
{
    folder.MakeFolder("sub");
    folder.MakeFile("a", 1);
    EXPECT_EQ(ErrorNumberOf([&] { FileSize("gone"); }), 53);
    EXPECT_EQ(ErrorNumberOf([&] { FileSize("sub"); }), 53);
    EXPECT_EQ(ErrorNumberOf([&] { FileSize("a/b"); }), 53);
}

TEST_F(FileSizeTest, LinksCountNothingWhereverTheyLead)
{
    folder.MakeFile("a", 1500);
    fs::create_symlink("a", folder / "link");
    fs::create_symlink("nowhere", folder / "dangling");
    fs::create_symlink("round", folder / "round");
    fs::create_directory_symlink(".", folder / "toFolder");
    EXPECT_EQ(FileSize("link"), 0);
    EXPECT_EQ(FileSize("toFolder"), 0);
    EXPECT_EQ(FileSize("dangling"), 0);
    EXPECT_EQ(FileSize("round"), 0);
}

TEST_F(FileSizeTest, APipeIsNeverOpenedAndCountsNothing)
{
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(FileSize("pipe"), 0);
}

TEST_F(FileSizeTest, AFileInAClosedFolderIsError70)
{
    fs::permissions(folder.Path(), fs::perms::all);
    folder.MakeFile("closed/a", 1);
    fs::permissions(folder / "closed", fs::perms::none);
    const test::Unprivileged nobody;
    EXPECT_EQ(ErrorNumberOf([&] { FileSize("closed/a"); }), 70);
}

TEST_F(SourceFilesTest, OnlyFoldersAreFolders)
{
    folder.MakeFolder("sub");
    folder.MakeFile("a", 1);
    fs::create_directory_symlink("sub", folder / "link");
    fs::create_symlink("nowhere", folder / "dangling");
    EXPECT_TRUE(files.IsDirectory(Program("sub")));
    EXPECT_TRUE(files.IsDirectory(Program("sub/")));
    EXPECT_FALSE(files.IsDirectory(Program("link")));
    EXPECT_FALSE(files.IsDirectory(Program("link/")));
    EXPECT_TRUE(files.IsDirectory(u"\\"_path));
    EXPECT_FALSE(files.IsDirectory(Program("a")));
    EXPECT_FALSE(files.IsDirectory(Program("dangling")));
    EXPECT_EQ(ErrorNumberOf([&] { files.IsDirectory(Program("gone")); }), 53);
}

TEST_F(SourceFilesTest, AMountPointIsToldFromAnOrdinaryFolder)
{
    EXPECT_TRUE(files.IsMountRoot(u"\\proc"_path));
    EXPECT_TRUE(files.IsMountRoot(u"\\proc\\"_path));
    EXPECT_FALSE(files.IsMountRoot(Program("")));
    EXPECT_FALSE(files.IsMountRoot(Program("gone")));
}

TEST_F(FindingTest, AFileIsFoundAsOneAndAFolderAsOne)
{
    folder.MakeFile("a", 1);
    folder.MakeFolder("d");
    EXPECT_TRUE(files.FindsFile(Program("a")));
    EXPECT_FALSE(files.FindsFolder(Program("a")));
    EXPECT_FALSE(files.FindsFile(Program("d")));
    EXPECT_TRUE(files.FindsFolder(Program("d")));
    EXPECT_TRUE(files.FindsFolder(Program("d/")));
    EXPECT_TRUE(files.FindsFolder(u"\\"_path));
}

TEST_F(FindingTest, NothingMissingOrHiddenIsFound)
{
    folder.MakeFile("a", 1);
    folder.MakeFile(".hidden", 1);
    folder.MakeFolder(".folder");
    for (const char* name : {"gone", "a/b", "a/", ".hidden", ".folder", ".folder/"}) {
        EXPECT_FALSE(files.FindsFile(Program(name))) << name;
        EXPECT_FALSE(files.FindsFolder(Program(name))) << name;
    }
    EXPECT_FALSE(files.FindsFile({}));
    EXPECT_FALSE(files.FindsFolder({}));
}

TEST_F(FindingTest, LinksAreFollowedAndADanglingOneIsAFile)
{
    folder.MakeFile("a", 1);
    folder.MakeFolder("d");
    fs::create_symlink("a", folder / "toFile");
    fs::create_symlink("d", folder / "toFolder");
    fs::create_symlink("nowhere", folder / "dangling");
    EXPECT_TRUE(files.FindsFile(Program("toFile")));
    EXPECT_TRUE(files.FindsFolder(Program("toFolder")));
    EXPECT_TRUE(files.FindsFile(Program("dangling")));
}

TEST_F(SourceFilesTest, BehindALinkIsThePlaceThatItLeadsToInTheEnd)
{
    folder.MakeFile("a", 1);
    folder.MakeFolder("d");
    fs::create_symlink("second", folder / "first");
    fs::create_symlink("a", folder / "second");
    fs::create_directory_symlink("d", folder / "toFolder");
    fs::create_symlink("nowhere", folder / "dangling");
    fs::create_symlink("round", folder / "round");
    const auto real = [this](const char* name) {
        return text::ToProgramPath(text::NativePath(fs::canonical(folder / name).native()));
    };
    EXPECT_EQ(files.BehindLink(Program("first")), real("a"));
    EXPECT_EQ(files.BehindLink(Program("toFolder")), real("d"));
    EXPECT_EQ(files.BehindLink(Program("toFolder/")), real("d"));
    EXPECT_TRUE(files.BehindLink(Program("dangling")).IsEmpty());
    EXPECT_TRUE(files.BehindLink(Program("round")).IsEmpty());
    for (const char* name : {"a", "d/", "gone"}) {
        EXPECT_EQ(files.BehindLink(Program(name)), Program(name)) << name;
    }
    EXPECT_TRUE(files.BehindLink({}).IsEmpty());
}

TEST_F(FindingTest, WhatMayNotBeLookedAtIsError70)
{
    folder.MakeFile("closed/a", 1);
    fs::permissions(folder / "closed", fs::perms::none);
    const test::Unprivileged noRights;
    EXPECT_EQ(ErrorNumberOf([&] { files.FindsFile(Program("closed/a")); }), 70);
    EXPECT_EQ(ErrorNumberOf([&] { files.FindsFolder(Program("closed/a")); }), 70);
}

TEST_F(BeginningTest, NoMoreThanTheLimitIsRead)
{
    std::ofstream(folder / "a") << "0123456789";
    EXPECT_EQ(files.Beginning(Program("a"), 4), QByteArray("0123"));
    EXPECT_EQ(files.Beginning(Program("a"), 100), QByteArray("0123456789"));
}

TEST_F(BeginningTest, WhatIsNoPlainFileIsNotOpened)
{
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink("nowhere", folder / "dangling");
    EXPECT_EQ(files.Beginning(Program("pipe"), 4), QByteArray());
    EXPECT_EQ(files.Beginning(Program("dangling"), 4), QByteArray());
    EXPECT_EQ(ErrorNumberOf([&] { files.Beginning(Program("gone"), 4); }), 53);
}

TEST_F(BeginningTest, WhatMayNotBeReadIsError70)
{
    fs::permissions(folder.MakeFile("a", 1), fs::perms::none);
    fs::permissions(folder.Path(), fs::perms::all);
    const test::Unprivileged noRights;
    EXPECT_EQ(ErrorNumberOf([&] { files.Beginning(Program("a"), 4); }), 70);
}
