// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ImageList.h"

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/WidgetApplication.h"

#include <QPixmap>

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;

namespace {

QIcon Square(Qt::GlobalColor colour)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return pixmap;
}

} // namespace

TEST(ImageListTest, AKeyKeepsItsFirstPicture)
{
    desktop::ImageList images;
    const QIcon first = Square(Qt::red);
    images.Add(u"F1"_s, first);
    EXPECT_EQ(test::ErrorNumberOf([&] { images.Add(u"F1"_s, Square(Qt::blue)); }), 35602);
    EXPECT_EQ(images.Picture(u"F1"_s).cacheKey(), first.cacheKey());
    EXPECT_EQ(images.Count(), 1);
}

TEST(ImageListTest, AnUnknownKeyHasNoPicture)
{
    desktop::ImageList images;
    images.Add(u"F1"_s, Square(Qt::red));
    EXPECT_TRUE(images.Picture(u"F2"_s).isNull());
    EXPECT_TRUE(images.Picture(u"f1"_s).isNull());
}

TEST(ImageListTest, AnEmptyPictureTakesItsKey)
{
    desktop::ImageList images;
    images.Add(u"F0"_s, QIcon());
    EXPECT_EQ(test::ErrorNumberOf([&] { images.Add(u"F0"_s, Square(Qt::red)); }), 35602);
    EXPECT_TRUE(images.Picture(u"F0"_s).isNull());
}
