// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/ShortcutTarget.h"

#include "compilation/NativeSourceFiles.h"
#include "tests/compilation/CompilationFixture.h"
#include "tests/support/ShellLinkFile.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

using namespace velmora;
using namespace Qt::StringLiterals;
using compilation::ResolveDesktopLink;
using compilation::ResolveShortcut;
using test::ErrorNumberOf;
using test::ShellLinkFile;
using text::ProgramPath;

namespace {

class ShortcutTargetTest : public testing::Test {
protected:
    ProgramPath Program(const std::string& name) const
    {
        return text::ToProgramPath(text::NativePath((folder / name).native()));
    }
    ProgramPath Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(folder.MakeFile(name, 0), std::ios::binary) << bytes;
        return Program(name);
    }
    ProgramPath WriteLink(const std::string& name, const ShellLinkFile& link) const
    {
        return Write(name, link.Bytes());
    }

    test::TemporaryFolder folder;
    compilation::NativeSourceFiles files;
};

} // namespace

TEST_F(ShortcutTargetTest, TheTargetLiesWhereTheRelativePathLeads)
{
    folder.MakeFile("docs/a.txt", 1);
    const ProgramPath link = WriteLink("links/a.lnk", {.relativePath = u"..\\docs\\a.txt"_s});
    EXPECT_EQ(ResolveShortcut(files, link), Program("docs/a.txt"));
}

TEST_F(ShortcutTargetTest, NoPathNoFileAndNoTargetGiveNothing)
{
    folder.MakeFolder("folder.lnk");
    EXPECT_EQ(ResolveShortcut(files, ProgramPath()), ProgramPath());
    EXPECT_EQ(ResolveShortcut(files, Program("gone.lnk")), ProgramPath());
    EXPECT_EQ(ResolveShortcut(files, Program("folder.lnk")), ProgramPath());
    EXPECT_EQ(
        ResolveShortcut(files, WriteLink("a.lnk", {.relativePath = u"gone"_s})), ProgramPath());
    EXPECT_EQ(ResolveShortcut(files, WriteLink("b.lnk", {})), ProgramPath());
}

TEST_F(ShortcutTargetTest, DriveZIsTheRootAndOtherDrivesAreUnknown)
{
    const std::string path = folder.MakeFile("a.txt", 1);
    const std::string drivePath = text::ToProgramPath(path).toStdString();
    const ProgramPath z = WriteLink("z.lnk", {.localBasePath = "Z:" + drivePath});
    const ProgramPath c = WriteLink("c.lnk", {.localBasePath = "C:" + drivePath});
    EXPECT_EQ(ResolveShortcut(files, z), Program("a.txt"));
    EXPECT_EQ(ResolveShortcut(files, c), ProgramPath());
}

TEST_F(ShortcutTargetTest, TheRelativePathComesFirstWhenItLeadsAnywhere)
{
    const std::string there = folder.MakeFile("there", 1);
    folder.MakeFile("here", 1);
    ShellLinkFile link {.localBasePath = "Z:" + text::ToProgramPath(there).toStdString(),
        .relativePath = u".\\here"_s};
    EXPECT_EQ(ResolveShortcut(files, WriteLink("a.lnk", link)), Program("here"));
    link.relativePath = u".\\gone"_s;
    EXPECT_EQ(ResolveShortcut(files, WriteLink("b.lnk", link)), Program("there"));
}

TEST_F(ShortcutTargetTest, AFileThatIsNoShellLinkIsAFailure)
{
    EXPECT_EQ(ErrorNumberOf([&] { ResolveShortcut(files, Write("a.lnk", "text")); }), -2147467259);
    EXPECT_EQ(ErrorNumberOf([&] { ResolveShortcut(files, Write("b.lnk", "")); }), -2147467259);
    const std::string cut = ShellLinkFile {.relativePath = u"a"_s}.Bytes();
    EXPECT_EQ(ErrorNumberOf(
                  [&] { ResolveShortcut(files, Write("c.lnk", cut.substr(0, cut.size() - 1))); }),
        -2147467259);
}

TEST_F(ShortcutTargetTest, ADesktopLinkMayNameAPathOrAnAddress)
{
    const std::string target = folder.MakeFile("a.txt", 1);
    const std::string head = "[Desktop Entry]\nType=Link\nURL=";
    EXPECT_EQ(
        ResolveDesktopLink(files, Write("a.desktop", head + "file://" + target)), Program("a.txt"));
    EXPECT_EQ(ResolveDesktopLink(files, Write("b.desktop", head + target)), Program("a.txt"));
    EXPECT_EQ(ResolveDesktopLink(files, Write("c.desktop", head + target + "x")), ProgramPath());
    EXPECT_EQ(ResolveDesktopLink(files, Write("d.desktop", head + "http://x")), std::nullopt);
    EXPECT_EQ(ResolveDesktopLink(files, Write("e.desktop", "Type=Link")), std::nullopt);
    EXPECT_EQ(ResolveDesktopLink(files, Program("gone.desktop")), std::nullopt);
}
