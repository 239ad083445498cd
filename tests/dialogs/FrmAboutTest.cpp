// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/frmAbout.h"

#include "dialogs/AboutTexts.h"
#include "tests/support/FakeClock.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/RecordedMessages.h"
#include "tests/support/WidgetApplication.h"

#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

namespace velmora::dialogs {

using namespace Qt::StringLiterals;

namespace {

class FrmAboutTest : public testing::Test {
protected:
    QString TextOf(const char* name)
    {
        return window_.findChild<QLabel*>(QString::fromLatin1(name))->text();
    }
    QPushButton& Button(const char* name)
    {
        return *window_.findChild<QPushButton*>(QString::fromLatin1(name));
    }

    test::FakePump pump_;
    test::FakeClock clock_ {pump_, QDateTime(QDate(2031, 5, 6), QTime(12, 0))};
    test::RecordedMessages messages_;
    frmAbout window_ {messages_, clock_};
};

} // namespace

TEST_F(FrmAboutTest, ItsTextsAreTheBuildsAndTheYearTheClocks)
{
    EXPECT_EQ(TextOf("lblTitle"), u"Velmora"_s);
    EXPECT_EQ(TextOf("lblVersion"), AboutVersion());
    EXPECT_EQ(TextOf("lblDescription"), AboutDescription());
    EXPECT_EQ(TextOf("lblDisclaimer"), AboutMaker(QDate(2031, 1, 1)));
    EXPECT_EQ(
        Button("lblWVVersion").text(), u"&Cliquer ici pour une aide sur la ligne de commande..."_s);
    EXPECT_EQ(Button("cmdOK").text(), u"&OK"_s);
}

TEST_F(FrmAboutTest, OkClosesIt)
{
    window_.show();
    Button("cmdOK").click();
    EXPECT_FALSE(window_.isVisible());
    EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(FrmAboutTest, TheLinkShowsTheHelp)
{
    window_.show();
    Button("lblWVVersion").click();
    ASSERT_EQ(messages_.shown.size(), 1U);
    EXPECT_EQ(messages_.shown[0].text, CommandLineHelp());
    EXPECT_EQ(messages_.shown[0].style, 4160);
    EXPECT_EQ(messages_.shown[0].title, u"Velmora"_s);
    EXPECT_TRUE(window_.isVisible());
}

TEST_F(FrmAboutTest, TheKeyboardReachesTheLink)
{
    EXPECT_NE(Button("lblWVVersion").focusPolicy() & Qt::TabFocus, 0);
}
} // namespace velmora::dialogs
