// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/WizardFixture.h"
#include "wizard/controls/CapacityBar.h"

#include <QScreen>

#include <algorithm>
#include <ostream>

namespace velmora::test {

namespace {

/// What a screen leaves for the window, in the window's own pixels, and how large its letters are.
struct Room {
    QSize size;
    qreal letters;

    friend void PrintTo(const Room& room, std::ostream* out)
    {
        *out << room.size.width() << 'x' << room.size.height() << ", letters x" << room.letters;
    }
};

} // namespace

class SmallScreenTest : public WizardFixture, public testing::WithParamInterface<Room> {
protected:
    void SetUp() override
    {
        QFont large = usual_;
        large.setPointSizeF(usual_.pointSizeF() * GetParam().letters);
        QApplication::setFont(large);
        OpenWith(u"dvd+r"_s);
        window->setMinimumSize(GetParam().size); // as on a screen of that size
        window->resize(GetParam().size);
        QCoreApplication::processEvents();
    }
    void TearDown() override { QApplication::setFont(usual_); }

    /// Nothing of it lies outside the window or under what scrolls.
    bool IsWhole(const char* name) const
    {
        QCoreApplication::processEvents();
        const auto& control = Find<QWidget>(name);
        return control.isVisible() && control.visibleRegion().boundingRect() == control.rect();
    }

private:
    QFont usual_ = QApplication::font();
};

TEST_P(SmallScreenTest, TheWindowBecomesAsSmallAsTheScreen)
{
    EXPECT_EQ(window->size(), GetParam().size);
    Click("CorvaneButton2_1");
    Click("CorvSuivant");
    QCoreApplication::processEvents();
    EXPECT_EQ(window->size(), GetParam().size);
}

TEST_P(SmallScreenTest, TheButtonsThatLeadOnAreInViewOnEveryPage)
{
    EXPECT_TRUE(IsWhole("CorvaneButton1"));
    EXPECT_TRUE(IsWhole("CorvaneTab1"));
    EXPECT_TRUE(IsWhole("Combo1"));
    Click("CorvaneButton2_1");
    EXPECT_TRUE(IsWhole("CorvSuivant"));
    EXPECT_TRUE(IsWhole("CorvFichiers"));
    Click("CorvFichiers");
    EXPECT_TRUE(IsWhole("CorvFermer"));
    EXPECT_TRUE(IsWhole("DiscName"));
    Click("CorvFermer");
    Click("CorvSuivant");
    EXPECT_TRUE(IsWhole("BurnButton_0"));
    EXPECT_TRUE(IsWhole("BurnButton_1"));
    EXPECT_TRUE(IsWhole("Label14"));
}

TEST_P(SmallScreenTest, TheButtonThatStopsIsInView)
{
    Click("CorvaneButton2_1");
    Click("CorvSuivant");
    bool isWhole = false;
    When(u"Progression"_s, [this, &isWhole] { isWhole = IsWhole("BurnButton_2"); });
    Click("BurnButton_0");
    EXPECT_TRUE(isWhole);
    EXPECT_EQ(window->size(), GetParam().size);
    EXPECT_TRUE(IsWhole("BurnButton_0"));
    EXPECT_TRUE(IsWhole("Label14"));
}

TEST_P(SmallScreenTest, WhatGetsTheFocusIsScrolledIntoView)
{
    Find<QTabBar>("CorvaneTab1").setCurrentIndex(1);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    Find<QWidget>("GraveurPossibilities").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), &Find<QWidget>("EraseDiscbutton"));
    EXPECT_TRUE(IsWhole("EraseDiscbutton"));
}

INSTANTIATE_TEST_SUITE_P(Screens,
    SmallScreenTest,
    testing::Values(Room {{1024, 560}, 1},
        Room {{1024, 560}, 1.5},
        Room {{800, 560}, 1},
        Room {{640, 360}, 1}));

class FirstSizeTest : public WizardFixture { };

TEST_F(FirstSizeTest, IsNoLargerThanTheScreen)
{
    OpenWith(u"dvd+r"_s);
    const QSize room = window->screen()->availableSize();
    EXPECT_EQ(window->width(), std::min(900, room.width()));
    EXPECT_EQ(window->height(), std::min(620, room.height()));
    EXPECT_EQ(window->minimumSize(), QSize(640, 440));
}

TEST_F(FirstSizeTest, TheButtonsOfTheListAreWhole)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Click("CorvFichiers");
    QCoreApplication::processEvents();
    for (const char* name : {"CorvaneButton3", "CorvaneButton8"}) {
        const auto& button = Find<QWidget>(name);
        EXPECT_EQ(button.visibleRegion().boundingRect(), button.rect()) << name;
    }
    EXPECT_EQ(Find<QWidget>("editScroll").width(), Find<QWidget>("editButtons").width());
}

TEST_F(FirstSizeTest, TheCapacityStandsBelowItsMark)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Click("CorvFichiers");
    QCoreApplication::processEvents();
    auto& bar = Find<wizard::CapacityBar>("Corvane7CalcProgressBar1");
    const auto& label = Find<QLabel>("Label10");
    const int mark = bar.mapTo(window.get(), QPoint(bar.MarkPosition(), 0)).x();
    EXPECT_NEAR(mark, label.mapTo(window.get(), label.rect().center()).x(), 2);
    EXPECT_EQ(bar.toolTip(), TextOf("Label11") + u" utilisés sur "_s + TextOf("Label10"));
}

} // namespace velmora::test
