// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/CompanionWindow.h"
#include "tests/companion/ProgramEnd.h"
#include "tests/support/Letters.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace velmora::companion {

using namespace Qt::StringLiterals;

class CompanionWindowTest : public testing::Test {
protected:
    void SetUp() override
    {
        window.Button().Offer(folder.Path());
        ASSERT_TRUE(program.Join(folder));
        window.show();
        window.activateWindow(); // as its user does
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    QString State() const { return window.findChild<QLabel*>(u"stateLabel"_s)->text(); }

    link::LinkFolder folder;
    test::ProgramEnd program;
    bool hasEnded = false;
    CompanionWindow window {[this] { hasEnded = true; }};
    QPushButton* stop = window.findChild<QPushButton*>(u"stopButton"_s);
};

TEST_F(CompanionWindowTest, AClickStops)
{
    EXPECT_EQ(State(), u"La gravure est en cours."_s);
    QTest::mouseClick(stop, Qt::LeftButton);
    EXPECT_TRUE(program.Hears("Undo\n"));
    EXPECT_EQ(State(), u"Arrêt demandé, veuillez patienter…"_s);
    EXPECT_FALSE(stop->isEnabled());
}

TEST_F(CompanionWindowTest, AnEmptyPokeGivesTheButtonBack)
{
    QTest::mouseClick(stop, Qt::LeftButton);
    program.Say("\n");
    EXPECT_TRUE(test::Await([&] { return stop->isEnabled(); }));
    EXPECT_EQ(State(), u"La gravure est en cours."_s);
}

TEST_F(CompanionWindowTest, WhoIsTypingDoesNotRuinTheDisc)
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_A, Qt::Key_Escape}) {
        QTest::keyClick(&window, key);
    }
    EXPECT_TRUE(stop->isEnabled());
    EXPECT_FALSE(window.Button().IsStopAsked());
}

TEST_F(CompanionWindowTest, StopsByItsMnemonic)
{
    QTest::keyClick(&window, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(test::Await([&] { return window.Button().IsStopAsked(); }));
    EXPECT_TRUE(program.Hears("Undo\n"));
}

TEST_F(CompanionWindowTest, EveryButtonHasALetter) { test::ExpectLettersOfTheirOwn(window); }

TEST_F(CompanionWindowTest, StopsByTabAndSpace)
{
    QTest::keyClick(&window, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), stop);
    QTest::keyClick(stop, Qt::Key_Space);
    EXPECT_TRUE(program.Hears("Undo\n"));
}

TEST_F(CompanionWindowTest, IsNotClosedByItsUser)
{
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(hasEnded);
}

TEST_F(CompanionWindowTest, LeavesTheKeyboardToWhoeverTypes)
{
    EXPECT_TRUE(window.testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(CompanionWindowTest, StaysOnTopAndFitsTheScreen)
{
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry()));
}

TEST_F(CompanionWindowTest, StandsBesideTheWindowThatWrites)
{
    const QRect room = window.screen()->availableGeometry();
    const QRect writer(room.left(), room.top(), room.width() - 440, room.height());
    window.StandBeside(writer);
    EXPECT_FALSE(window.frameGeometry().intersects(writer));
    window.StandBeside(room);
    EXPECT_LT(window.x(), room.center().x() - window.width() / 2);
    EXPECT_GT(window.y(), room.center().y() - window.height() / 2);
    EXPECT_TRUE(room.contains(window.geometry()));
}

TEST_F(CompanionWindowTest, ShowsHowFarTheWriteIs)
{
    auto* bar = window.findChild<QProgressBar*>(u"progressBar"_s);
    test::ProgramEnd figures;
    figures.Connect(folder, u"StopButton|Progress"_s);
    figures.Say("Avancement\n");
    ASSERT_TRUE(figures.Hears("\n"));
    figures.Say("42 Gravure, reste 12 s\n");
    EXPECT_TRUE(test::Await([&] { return bar->value() == 42; }));
    EXPECT_EQ(bar->maximum(), 100);
    EXPECT_EQ(window.findChild<QLabel*>(u"progressLabel"_s)->text(), u"Gravure, reste 12 s"_s);
    figures.Say("- Finalisation du disque…\n");
    EXPECT_TRUE(test::Await([&] { return bar->maximum() == 0; })) << "it moves without an end";
    figures.Leave();
    EXPECT_FALSE(hasEnded) << "only the link of the button ends the companion";
}

TEST_F(CompanionWindowTest, SaysItsNameToAScreenReader)
{
    EXPECT_EQ(stop->accessibleName(), u"Arrêter la gravure"_s);
    EXPECT_FALSE(stop->accessibleDescription().isEmpty());
}

} // namespace velmora::companion
