// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/cVBALSysImageList.h"

#include "desktop/FileIcons.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetApplication.h"
#include "text/PathText.h"

#include <QImage>

#include <gtest/gtest.h>

#include <fstream>

namespace velmora::dialogs {

using namespace Qt::StringLiterals;

namespace {

/// A theme with a red icon for texts and a blue one for pictures.
class SysImageListTest : public testing::Test {
protected:
    SysImageListTest()
    {
        folder_.MakeFolder("icons/test/mimetypes");
        std::ofstream(folder_ / "icons/test/index.theme")
            << "[Icon Theme]\nName=test\nDirectories=mimetypes\n"
               "[mimetypes]\nSize=64\nType=Scalable\nMinSize=8\nMaxSize=256\n";
        Draw("text-x-generic", Qt::red);
        Draw("image-x-generic", Qt::blue);
        QIcon::setThemeSearchPaths({QString::fromStdString(folder_ / "icons")});
        QIcon::setThemeName(u"test"_s);
    }
    ~SysImageListTest() override
    {
        QIcon::setThemeSearchPaths(paths_);
        QIcon::setThemeName(theme_);
    }

    void Draw(const std::string& name, Qt::GlobalColor colour) const
    {
        QImage image(64, 64, QImage::Format_ARGB32);
        image.fill(colour);
        image.save(QString::fromStdString(folder_ / ("icons/test/mimetypes/" + name + ".png")));
    }
    static QColor ColourOf(const QIcon& icon)
    {
        return icon.pixmap(QSize(16, 16), 1.0).toImage().pixelColor(8, 8);
    }

    const QStringList paths_ = QIcon::themeSearchPaths();
    const QString theme_ = QIcon::themeName();
    test::TemporaryFolder folder_;
    desktop::FileIcons icons_;
    cVBALSysImageList list_ {icons_};
};

} // namespace

TEST_F(SysImageListTest, FilesOfOneTypeHaveOneNumber)
{
    const qint32 text = list_.ItemIndex(u"\\a.txt"_s, false);
    EXPECT_GT(text, 0);
    EXPECT_EQ(list_.ItemIndex(u"\\b.txt"_s, false), text);
    EXPECT_NE(list_.ItemIndex(u"\\b.png"_s, false), text);
}

TEST_F(SysImageListTest, ATextThatReadsAsANumberIsTakenForAnIndex)
{
    EXPECT_EQ(list_.ItemIndex(u"123"_s, true), 123);
    EXPECT_EQ(list_.ItemIndex(u"-4"_s, false), -4);
    EXPECT_EQ(list_.ItemIndex(u"2.5"_s, false), 2);
    EXPECT_EQ(list_.ItemIndex(u"3.5"_s, false), 4);
    EXPECT_NE(list_.ItemIndex(u"123.txt"_s, false), 123);
    EXPECT_NE(list_.ItemIndex(u"\\123"_s, false), 123);
}

TEST_F(SysImageListTest, TheNumberGoesByTheFileAndThePictureByItsName)
{
    const std::string path = folder_ / "holiday.png";
    std::ofstream(path) << "just a few words\n";
    const QString file = text::ToProgramPath((folder_ / "holiday").string());
    std::ofstream(folder_ / "holiday") << "\x89PNG\r\n\x1a\n";
    EXPECT_EQ(list_.ItemIndex(file, true), list_.ItemIndex(u"\\x.png"_s, false));
    EXPECT_NE(ColourOf(list_.ItemPicture(file)), QColor(Qt::blue));
}

TEST_F(SysImageListTest, APictureHasTheIconSizeAtEveryScale)
{
    const QIcon picture = list_.ItemPicture(u"\\a.txt"_s);
    EXPECT_EQ(ColourOf(picture), QColor(Qt::red));
    EXPECT_EQ(ColourOf(list_.ItemPicture(u"\\a.png"_s)), QColor(Qt::blue));
    for (const qreal scale : {1.0, 2.0, 3.0}) {
        const QPixmap drawn = picture.pixmap(QSize(16, 16), scale);
        EXPECT_EQ(drawn.deviceIndependentSize(), QSizeF(16, 16));
        EXPECT_EQ(drawn.width(), qRound(16 * scale));
    }
    EXPECT_LE(picture.pixmap(QSize(64, 64), 1.0).width(), 64);
}

TEST_F(SysImageListTest, APictureIsDrawnOnceUntilTheSizeChanges)
{
    const qint64 first = list_.ItemPicture(u"\\a.txt"_s).cacheKey();
    EXPECT_EQ(list_.ItemPicture(u"\\b.txt"_s).cacheKey(), first);
    list_.IconSizeX = 32;
    list_.IconSizeY = 32;
    list_.Create();
    EXPECT_EQ(list_.ItemPicture(u"\\a.txt"_s).pixmap(QSize(64, 64), 1.0).width(), 32);
    EXPECT_NE(list_.ItemPicture(u"\\a.txt"_s).cacheKey(), first);
}

TEST_F(SysImageListTest, ANumberThatStandsForNoIconHasAnEmptyPicture)
{
    EXPECT_TRUE(list_.ItemPicture(u"0"_s).isNull());
    EXPECT_TRUE(list_.ItemPicture(u"-1"_s).isNull());
    EXPECT_TRUE(list_.ItemPicture(u"99"_s).isNull());
}

} // namespace velmora::dialogs
