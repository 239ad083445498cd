// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Places.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace {

class PlacesTest : public testing::Test {
protected:
    PlacesTest()
    {
        home_.MakeFolder("config/gtk-3.0");
        home_.MakeFolder("data");
    }

    QString Made(const std::string& name) const
    {
        return QString::fromStdString(home_.MakeFolder(name).native());
    }
    void Write(const std::string& file, const QString& content) const
    {
        std::ofstream(home_ / file) << content.toStdString();
    }
    QStringList Found() const
    {
        return Places({.configFolder = Made("config"),
            .dataFolder = Made("data"),
            .volumes = [this] { return volumes_; }});
    }

    test::TemporaryFolder home_;
    QStringList volumes_;
};

} // namespace

TEST_F(PlacesTest, ADesktopWithoutBookmarksHasNone) { EXPECT_EQ(Found(), QStringList()); }

TEST_F(PlacesTest, BookmarksOfBothDesktopsAndVolumesComeInTheirOrderEachOnce)
{
    const QString music = Made("my music");
    const QString films = Made("films");
    const QString stick = Made("media/stick");
    Write("config/gtk-3.0/bookmarks",
        u"file://"_s + QString(music).replace(u' ', u"%20"_s) + u" Ma musique\n"_s);
    Write("data/user-places.xbel",
        u"<xbel><bookmark href=\"file://"_s + films + u"\"/><bookmark href=\"file://"_s
            + QString(music).replace(u' ', u"%20"_s) + u"\"/></xbel>"_s);
    volumes_ = {stick, films};
    EXPECT_EQ(Found(), QStringList({music, films, stick}));
}

TEST_F(PlacesTest, WhatIsGoneHiddenOrElsewhereIsNoPlace)
{
    const QString hidden = Made("hidden");
    const QString shown = Made("shown");
    Write("config/gtk-3.0/bookmarks",
        u"file:///nowhere/at/all\nsftp://host/folder\n\nnot an address\n"_s);
    Write("data/user-places.xbel",
        u"<xbel><bookmark href=\"trash:/\"/><bookmark href=\"file://"_s + hidden
            + u"\"><info><metadata><IsHidden>true</IsHidden></metadata></info></bookmark>"
              u"<bookmark href=\"file://"_s
            + shown
            + u"\"><info><metadata><IsHidden>false</IsHidden></metadata></info></bookmark></xbel>"_s);
    EXPECT_EQ(Found(), QStringList({shown}));
}

TEST_F(PlacesTest, AFileThatIsCutGivesWhatStandsInIt)
{
    const QString films = Made("films");
    Write("data/user-places.xbel", u"<xbel><bookmark href=\"file://"_s + films + u"\"><inf"_s);
    EXPECT_EQ(Found(), QStringList({films}));
}

} // namespace velmora::desktop
