// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/SmallScreenFixture.h"
#include "wizard/controls/CapacityBar.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <initializer_list>

namespace velmora::test {

class SmallScreenTest : public SmallScreenFixture {
protected:
    void SetUp() override { OpenInRoom(u"dvd+r"); }

    /// Nothing of it lies outside the window or under what scrolls.
    bool IsWhole(const char* name) const
    {
        QCoreApplication::processEvents();
        const auto& control = Find<QWidget>(name);
        return control.isVisible() && control.visibleRegion().boundingRect() == control.rect();
    }

    void Burn()
    {
        Click("CorvaneButton2_1");
        Click("CorvSuivant");
        Click("BurnButton_0");
        QCoreApplication::processEvents();
    }
    /// What the burn page says about a run's end can be read, possibly by scrolling, and covers
    /// nothing.
    void ExpectReadableEnd(const QString& title) const
    {
        EXPECT_EQ(TextOf("outcomeTitle"), title);
        EXPECT_EQ(window->size(), GetParam().size);
        EXPECT_TRUE(IsWhole("outcomeTitle")) << "without scrolling";
        ExpectOneBelowTheOther({"outcomeTitle", "Label14", "outcomeAdvice"});
        ExpectOneBelowTheOther({"Label13", "phaseScroll", "LogTxtBox", "BurnButton_0"});
        for (const char* name : {"LogTxtBox", "BurnButton_0", "BurnButton_1", "compareDisc"}) {
            EXPECT_TRUE(IsWhole(name)) << name;
        }
        auto& scroll = Find<QScrollArea>("phaseScroll");
        for (const char* name : {"outcomeTitle", "Label14", "outcomeAdvice"}) {
            if (!IsOnScreen(name)) continue;
            auto& label = Find<QLabel>(name);
            scroll.ensureWidgetVisible(&label, 0, 0);
            EXPECT_TRUE(IsWhole(name)) << name;
            EXPECT_GE(label.height(), label.heightForWidth(label.width())) << name << " is cut";
        }
        ExpectLogLines(2);
    }
    void ExpectOneBelowTheOther(std::initializer_list<const char*> names) const
    {
        int lowest = 0;
        for (const char* name : names) {
            if (!IsOnScreen(name)) continue;
            const auto& control = Find<QWidget>(name);
            const int top = control.mapTo(window.get(), QPoint()).y();
            EXPECT_GE(top, lowest) << name << " lies over what is above it";
            lowest = top + control.height();
        }
    }
    void ExpectLogLines(int least) const
    {
        const auto& log = Find<QPlainTextEdit>("LogTxtBox");
        EXPECT_GE(log.viewport()->height(), least * log.fontMetrics().lineSpacing());
        EXPECT_EQ(log.verticalScrollBar()->value(), log.verticalScrollBar()->maximum())
            << "its end is in view";
    }
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
    When(u"Progression"_s,
        [this, &isWhole] { isWhole = IsWhole("BurnButton_2") && IsWhole("Label14"); });
    Click("BurnButton_0");
    EXPECT_TRUE(isWhole);
    EXPECT_EQ(window->size(), GetParam().size);
    EXPECT_TRUE(IsWhole("BurnButton_0"));
    EXPECT_TRUE(IsWhole("Label14"));
}

TEST_P(SmallScreenTest, AFailureCanBeRead)
{
    recorders.Plan(u"graveur"_s,
        {.kind = virtualdrive::FaultKind::MediumError, .sector = 200, .lasting = true});
    Burn();
    ExpectReadableEnd(u"La gravure a échoué"_s);
}

TEST_P(SmallScreenTest, AHurtDiscCanBeRead)
{
    recorders.Plan(
        u"graveur"_s, {.kind = virtualdrive::FaultKind::ReadError, .sector = 100, .lasting = true});
    Burn();
    ExpectReadableEnd(u"Le disque gravé est abîmé"_s);
}

TEST_P(SmallScreenTest, AStopAndARefusalCanBeRead)
{
    When(u"Progression"_s, [this] { companion.isStopAsked = true; });
    Burn();
    ExpectReadableEnd(u"Gravure arrêtée"_s);
    boxes.answers = {u"OK"_s, u"Non"_s}; // to the disc that was begun
    Click("BurnButton_0");
    ExpectReadableEnd(u"Rien n'a été gravé"_s);
}

TEST_P(SmallScreenTest, AGoodEndCanBeRead)
{
    Burn();
    ExpectReadableEnd(u"Disque gravé"_s);
}

TEST_P(SmallScreenTest, TheOptionsNeedNoScrollingToTheSide)
{
    for (const char* tile : {"CorvaneButton2_1", "CorvaneButton2_3"}) {
        Click(tile);
        QCoreApplication::processEvents();
        auto& page = Find<QWidget>("BurnDataContainer1_0");
        const auto& scroll = FindChild<QScrollArea>(page, "pageScroll");
        ASSERT_TRUE(scroll.isVisible());
        EXPECT_FALSE(scroll.horizontalScrollBar()->isVisible()) << tile;
        const auto& frames = Find<QWidget>("typeFrames");
        EXPECT_GE(frames.width(), frames.minimumSizeHint().width()) << tile;
        Click("CorvaneButton1");
    }
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

TEST_P(SmallScreenTest, TheCauseOfAFailureIsReachedByTheKeyboard)
{
    recorders.Plan(u"graveur"_s,
        {.kind = virtualdrive::FaultKind::MediumError, .sector = 200, .lasting = true});
    Burn();
    QCoreApplication::processEvents();
    const bool isWholeAtOnce = IsWhole("outcomeAdvice");
    auto& strip = Find<QScrollArea>("phaseScroll");
    EXPECT_EQ(strip.focusPolicy() == Qt::NoFocus, isWholeAtOnce);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    for (int presses = 0; presses < 20 && !isWholeAtOnce && !strip.hasFocus(); ++presses) {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus == nullptr ? window.get() : focus, Qt::Key_Tab);
    }
    for (int presses = 0; presses < 20 && !IsWhole("outcomeAdvice"); ++presses) {
        ASSERT_TRUE(strip.hasFocus());
        QTest::keyClick(&strip, Qt::Key_Down);
    }
    EXPECT_TRUE(IsWhole("outcomeAdvice"));
}

TEST_P(SmallScreenTest, ANewEndIsReadFromItsBeginning)
{
    recorders.Plan(u"graveur"_s,
        {.kind = virtualdrive::FaultKind::MediumError, .sector = 200, .lasting = true});
    Burn();
    QScrollBar& bar = *Find<QScrollArea>("phaseScroll").verticalScrollBar();
    bar.setValue(bar.maximum());
    boxes.answers = {u"OK"_s, u"Non"_s}; // to the disc that was begun
    Click("BurnButton_0");
    EXPECT_TRUE(IsWhole("outcomeTitle"));
}

TEST_P(SmallScreenTest, TheEndOfAnEraseComesIntoView)
{
    Insert(u"graveur"_s, u"cd-rw"_s);
    recorders.Plan(u"graveur"_s, {.kind = virtualdrive::FaultKind::EraseFails});
    Find<QTabBar>("CorvaneTab1").setCurrentIndex(1);
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    bool isWhole = true;
    pump.onPump = [&] { isWhole = isWhole && (!IsOnScreen("lblErase") || IsWhole("lblErase")); };
    auto& button = Find<QAbstractButton>("EraseDiscbutton");
    button.click(); // wherever it is
    pump.onPump = {};
    EXPECT_TRUE(isWhole) << "while it goes on";
    for (const char* name : {"erasePicture", "eraseTitle", "lblErase", "eraseCause"}) {
        EXPECT_TRUE(IsWhole(name)) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Screens,
    SmallScreenTest,
    testing::Values(Room {{1024, 560}, 1},
        Room {{1024, 560}, 1.5},
        Room {{800, 560}, 1},
        Room {{683, 400}, 1},
        Room {{533, 400}, 1},
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
