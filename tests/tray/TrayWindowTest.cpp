// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayWindow.h"

#include "tests/support/FakeClock.h"
#include "tests/support/FindChild.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetApplication.h"
#include "tray/DriveView.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

namespace velmora::tray {

using namespace Qt::StringLiterals;

class TrayWindowTest : public testing::Test {
protected:
    template <class Child> static Child& Find(TrayWindow& window, const char* name)
    {
        return test::FindChild<Child>(window, name);
    }
    static QString TextOf(TrayWindow& window, const char* name)
    {
        return Find<QLabel>(window, name).text();
    }
    static void Click(TrayWindow& window, const char* name)
    {
        Find<QPushButton>(window, name).click();
    }
    /// Handles events until the disc's label begins with a text, for five seconds at most.
    static bool AwaitDisc(TrayWindow& window, QStringView text)
    {
        QElapsedTimer waited;
        waited.start();
        while (!TextOf(window, "discLabel").startsWith(text) && waited.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        }
        return TextOf(window, "discLabel").startsWith(text);
    }

    test::TemporaryFolder folder;
    test::FakePump pump;
    test::FakeClock clock {pump, QDateTime::fromMSecsSinceEpoch(1'700'000'000'000)};
    virtualdrive::Recorders recorders {folder.Path().string() + "/recorders"};
};

TEST_F(TrayWindowTest, WithoutARecorderOnlyANewOneCanBeMade)
{
    TrayWindow window(recorders, clock);
    EXPECT_EQ(TextOf(window, "discLabel"), u"Aucun graveur virtuel"_s);
    for (const char* name : {"trayButton", "insertButton", "imageButton", "takeOutButton"}) {
        EXPECT_FALSE(Find<QPushButton>(window, name).isEnabled()) << name;
    }
    Click(window, "newButton");
    EXPECT_EQ(recorders.Names(), QStringList {u"graveur-1"_s});
    EXPECT_TRUE(Find<QPushButton>(window, "trayButton").isEnabled());
    EXPECT_FALSE(Find<QPushButton>(window, "takeOutButton").isEnabled());
}

TEST_F(TrayWindowTest, TheButtonsDoWhatTheySay)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    Click(window, "insertButton");
    EXPECT_EQ(TextOf(window, "discLabel"), u"DVD+R, vierge"_s);
    EXPECT_EQ(TextOf(window, "spaceLabel"), u"0 octets utilisés, 4,70 Go libres"_s);
    Click(window, "trayButton");
    EXPECT_TRUE(recorders.Show(u"A"_s).trayOpen);
    EXPECT_EQ(Find<QPushButton>(window, "trayButton").text(), u"&Fermer le tiroir"_s);
    Click(window, "trayButton");
    EXPECT_FALSE(recorders.Show(u"A"_s).trayOpen);
    Click(window, "takeOutButton");
    EXPECT_FALSE(recorders.Show(u"A"_s).disc);
    QComboBox& media = Find<QComboBox>(window, "mediumBox");
    media.setCurrentText(u"BD-RE"_s);
    Click(window, "insertButton");
    EXPECT_EQ(recorders.Show(u"A"_s).disc->medium->key, u"bd-re");
}

TEST_F(TrayWindowTest, ShowsWhatOthersDo)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    EXPECT_EQ(TextOf(window, "discLabel"), u"Pas de disque"_s);
    recorders.Insert(u"A"_s, {.medium = virtualdrive::FindMedium(u"cd-rw")}, clock);
    EXPECT_TRUE(AwaitDisc(window, u"CD-RW, vierge"));
    recorders.TakeOut(u"A"_s);
    EXPECT_TRUE(AwaitDisc(window, u"Tiroir ouvert"));
}

TEST_F(TrayWindowTest, ShowsARecorderThatOthersMake)
{
    TrayWindow window(recorders, clock);
    recorders.Create(u"B"_s);
    EXPECT_TRUE(AwaitDisc(window, u"Pas de disque"));
    EXPECT_EQ(Find<QComboBox>(window, "recorderBox").currentText(), u"B"_s);
}

TEST_F(TrayWindowTest, AWishThatIsNotGrantedIsExplained)
{
    recorders.Create(u"A"_s);
    recorders.Plan(u"A"_s, {.kind = virtualdrive::FaultKind::TrayStuck});
    TrayWindow window(recorders, clock);
    Click(window, "insertButton");
    EXPECT_TRUE(TextOf(window, "noticeLabel").endsWith(u"Le tiroir ne se ferme pas."));
    Click(window, "trayButton");
    EXPECT_TRUE(TextOf(window, "noticeLabel").isEmpty());
}

TEST_F(TrayWindowTest, EveryControlHasANameToBeReadOut)
{
    TrayWindow window(recorders, clock);
    for (const QWidget* child : window.findChildren<QPushButton*>()) {
        EXPECT_FALSE(static_cast<const QPushButton*>(child)->text().isEmpty());
        EXPECT_TRUE(static_cast<const QPushButton*>(child)->text().contains(u'&'));
    }
    for (const char* name : {"recorderBox", "mediumBox", "driveView"}) {
        EXPECT_FALSE(Find<QWidget>(window, name).accessibleName().isEmpty()) << name;
    }
}

TEST_F(TrayWindowTest, TheRecordedRingGrows)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    DriveView& view = Find<DriveView>(window, "driveView");
    view.resize(640, 576);
    const auto bluePixels = [&](double share) {
        view.Show({.hasDrive = true, .isOpen = true, .hasDisc = true, .usedShare = share});
        const QImage picture = view.grab().toImage();
        int blue = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor colour = picture.pixelColor(x, y);
                blue += colour.blue() > colour.red() + 60 ? 1 : 0;
            }
        }
        return blue;
    };
    const int whole = bluePixels(1);
    EXPECT_EQ(bluePixels(0), 0);
    EXPECT_GT(whole, 10'000);
    EXPECT_NEAR(bluePixels(0.5), whole / 2, whole / 20);
}
} // namespace velmora::tray
