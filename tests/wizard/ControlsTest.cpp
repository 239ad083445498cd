// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"
#include "wizard/controls/CapacityBar.h"
#include "wizard/controls/ElidedLabel.h"
#include "wizard/controls/FormatTile.h"
#include "wizard/controls/PageStack.h"
#include "wizard/controls/PictureButton.h"

#include <QPixmap>

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

QColor ColourAt(QWidget& widget, qreal x, qreal y)
{
    const QImage picture = widget.grab().toImage();
    return picture.pixelColor(
        static_cast<int>(x * picture.width()), static_cast<int>(y * picture.height()));
}

} // namespace

TEST(PageStackTest, TheLastPageThatCameIsSeen)
{
    PageStack stack(nullptr);
    auto* options = new QWidget(&stack);
    auto* list = new QWidget(&stack);
    stack.Add(*options);
    stack.Add(*list);
    stack.show();
    EXPECT_FALSE(options->isVisible());
    stack.Place(*options, true);
    stack.Place(*list, true);
    EXPECT_TRUE(list->isVisible());
    EXPECT_FALSE(options->isVisible());
    EXPECT_TRUE(stack.IsPlaced(*options));
    stack.Place(*options, true);
    EXPECT_TRUE(list->isVisible()) << "a page that is there stays where it lies";
    stack.Place(*list, false);
    EXPECT_TRUE(options->isVisible());
    stack.Place(*options, false);
    EXPECT_FALSE(options->isVisible());
    EXPECT_FALSE(list->isVisible());
}

TEST(FormatTileTest, ItsColourTellsWhetherItIsPossible)
{
    FormatTile tile(nullptr);
    tile.resize(240, 120);
    EXPECT_EQ(ColourAt(tile, 0.5, 0.1), QColor(0x40, 0x60, 0xC0));
    tile.SetPossible(false);
    EXPECT_EQ(ColourAt(tile, 0.5, 0.1), QColor(0x80, 0x80, 0x80));
    EXPECT_TRUE(tile.isEnabled());
    EXPECT_EQ(tile.accessibleDescription(), u"Non disponible avec ce graveur"_s);
}

TEST(FormatTileTest, AClickOnGreyIsStillAClick)
{
    FormatTile tile(nullptr);
    tile.SetPossible(false);
    int clicks = 0;
    QObject::connect(&tile, &QAbstractButton::clicked, &tile, [&] { ++clicks; });
    tile.click();
    EXPECT_EQ(clicks, 1); // obeying it isn't the tile's job
}

TEST(CapacityBarTest, PastTheMarkItTakesTheColourOfAWarning)
{
    CapacityBar bar(nullptr);
    bar.resize(400, 24);
    bar.Setlimit(91);
    bar.setValue(90);
    EXPECT_EQ(ColourAt(bar, 0.5, 0.5), QColor(0x40, 0x60, 0xC0));
    bar.setValue(91);
    EXPECT_EQ(ColourAt(bar, 0.5, 0.5), QColor(0xD9, 0x6A, 0x1A));
}

TEST(CapacityBarTest, TheFilledPartIsAsLongAsTheValue)
{
    CapacityBar bar(nullptr);
    bar.resize(400, 24);
    bar.Setlimit(91);
    bar.setValue(50);
    EXPECT_EQ(ColourAt(bar, 0.49, 0.5), QColor(0x40, 0x60, 0xC0));
    EXPECT_EQ(ColourAt(bar, 0.52, 0.5), bar.palette().color(QPalette::Base));
}

TEST(ElidedLabelTest, ALongLineKeepsItsTextAndSaysItUnderTheMouse)
{
    ElidedLabel label(nullptr);
    const QString path = u"Dossier :\r\n/"_s + QString(400, u'x');
    label.setText(path);
    label.resize(200, 60);
    label.grab();
    EXPECT_EQ(label.text(), path);
    EXPECT_EQ(label.toolTip(), path);
    EXPECT_LT(label.minimumSizeHint().width(), 200);
    label.setText(u"court"_s);
    label.grab();
    EXPECT_EQ(label.toolTip(), QString());
}

TEST(PictureButtonTest, ItShowsItsPicture)
{
    PictureButton button(nullptr);
    button.resize(40, 40);
    const QImage without = button.grab().toImage();
    button.SetDrawing(u"back"_s);
    EXPECT_NE(button.grab().toImage(), without);
}

} // namespace velmora::wizard
