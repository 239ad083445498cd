// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileIcons.h"

#include "desktop/ThemeIcon.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetApplication.h"
#include "text/PathText.h"

#include <QImage>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <fstream>

namespace velmora::desktop {

using namespace Qt::StringLiterals;
using namespace test::path_literals;

namespace {

/// A theme of the test's own, with an icon for texts, one for pictures of one type and one for
/// films.
class FileIconsTest : public testing::Test {
protected:
    FileIconsTest()
    {
        folder_.MakeFolder("icons/test");
        std::ofstream(folder_ / "icons/test/index.theme")
            << "[Icon Theme]\nName=test\nDirectories=mimetypes\n"
               "[mimetypes]\nSize=16\nType=Scalable\nMinSize=8\nMaxSize=256\n";
        for (const char* name : {"text-x-generic", "image-png", "video-x-generic"}) {
            folder_.MakeFolder("icons/test/mimetypes");
            QImage(16, 16, QImage::Format_ARGB32)
                .save(QString::fromStdString(
                    folder_ / ("icons/test/mimetypes/" + std::string(name) + ".png")));
        }
        QIcon::setThemeSearchPaths({QString::fromStdString(folder_ / "icons")});
        QIcon::setThemeName(u"test"_s);
    }
    ~FileIconsTest() override
    {
        QIcon::setThemeSearchPaths(paths_);
        QIcon::setThemeName(theme_);
    }

    text::ProgramPath MakeFile(const std::string& name, const std::string& text = {}) const
    {
        std::ofstream(folder_ / name) << text;
        return PathOf(name);
    }
    text::ProgramPath PathOf(const std::string& name) const
    {
        return text::ToProgramPath(text::NativePath((folder_ / name).string()));
    }
    qint32 ByName(const text::ProgramPath& path) { return icons_.IndexOf(path, TypeBy::Name); }
    qint32 ByContent(const text::ProgramPath& path)
    {
        return icons_.IndexOf(path, TypeBy::Content);
    }

    const QStringList paths_ = QIcon::themeSearchPaths();
    const QString theme_ = QIcon::themeName();
    test::TemporaryFolder folder_;
    FileIcons icons_;
};

const std::string kPngHead = "\x89PNG\r\n\x1a\n";

} // namespace

TEST_F(FileIconsTest, FilesOfOneTypeShareAStableNumber)
{
    const qint32 text = ByName(u"\\a.txt"_path);
    const qint32 picture = ByName(u"\\a.png"_path);
    EXPECT_EQ(text, 1);
    EXPECT_EQ(picture, 2);
    EXPECT_EQ(ByName(u"\\elsewhere\\b.txt"_path), text);
    EXPECT_EQ(ByName(u"\\b.png"_path), picture);
    EXPECT_EQ(ByName(u"\\c.txt"_path), text);
}

TEST_F(FileIconsTest, TypesWithOneIconShareItsNumber)
{
    EXPECT_EQ(ByName(u"\\a.avi"_path), ByName(u"\\a.mkv"_path));
    EXPECT_EQ(ByName(u"\\a.txt"_path), ByName(u"\\a.py"_path));
    EXPECT_NE(ByName(u"\\a.avi"_path), ByName(u"\\a.txt"_path));
}

TEST_F(FileIconsTest, WhatTheThemeDoesntKnowIsAPlainSheet)
{
    const qint32 unknown = ByName(u"\\a.zip"_path);
    EXPECT_EQ(ByName(u"\\no name known"_path), unknown);
    EXPECT_EQ(icons_.Icon(unknown).pixmap(16).toImage(),
        ThemeIcon({}, QStyle::SP_FileIcon).pixmap(16).toImage());
}

TEST_F(FileIconsTest, ByContentTheFileIsAsked)
{
    const text::ProgramPath disguised = MakeFile("picture", kPngHead + "IHDR");
    EXPECT_EQ(ByContent(disguised), ByName(u"\\x.png"_path));
    EXPECT_NE(ByName(disguised), ByName(u"\\x.png"_path));
}

TEST_F(FileIconsTest, AFileThatIsntThereGoesByItsName)
{
    EXPECT_EQ(ByContent(PathOf("missing.png")), ByName(u"\\x.png"_path));
}

TEST_F(FileIconsTest, APipeIsNeverOpened)
{
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_GT(ByContent(PathOf("pipe")), 0); // an open would wait for ever
}

TEST_F(FileIconsTest, ANameOfAnyBytesIsTaken)
{
    EXPECT_EQ(
        ByName(text::ToProgramPath(text::NativePath("/caf\xE9.png"))), ByName(u"\\x.png"_path));
}

TEST_F(FileIconsTest, ANumberThatStandsForNoneHasNoIcon)
{
    const qint32 last = ByName(u"\\a.txt"_path);
    EXPECT_FALSE(icons_.Icon(last).isNull());
    EXPECT_TRUE(icons_.Icon(0).isNull());
    EXPECT_TRUE(icons_.Icon(-1).isNull());
    EXPECT_TRUE(icons_.Icon(last + 1).isNull());
}

TEST_F(FileIconsTest, AFolderHasAnIconOnEveryDesktop) { EXPECT_FALSE(FolderIcon().isNull()); }

} // namespace velmora::desktop
