// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayWindow.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"
#include "tests/tray/TrayWindowBench.h"
#include "tray/DriveView.h"
#include "virtual/VirtualDrive.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSet>
#include <QSpinBox>

namespace velmora::tray {

using TrayWindowTest = TrayWindowBench;

namespace {

/// The mnemonic letters of a window's own controls.
QStringList Letters(const QWidget& window)
{
    QStringList letters;
    const auto note = [&](const QString& text) {
        const qsizetype mark = text.indexOf(u'&');
        if (mark >= 0) {
            letters.append(text.sliced(mark + 1, 1).toUpper());
        }
    };
    for (const auto* child : window.findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly)) {
        EXPECT_TRUE(child->text().contains(u'&')) << child->text().toStdString();
        note(child->text());
    }
    for (const auto* child : window.findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
        if (child->buddy() != nullptr) {
            note(child->text());
        }
    }
    return letters;
}

/// Every field has a name to be read out, and no letter is taken twice.
void ExpectNamed(const QWidget& window)
{
    for (const auto* child : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        const bool isField = qobject_cast<const QComboBox*>(child) != nullptr
            || qobject_cast<const QSpinBox*>(child) != nullptr
            || qobject_cast<const QLineEdit*>(child) != nullptr;
        EXPECT_TRUE(!isField || !child->accessibleName().isEmpty())
            << child->objectName().toStdString();
    }
    const QStringList letters = Letters(window);
    EXPECT_EQ(QSet<QString>(letters.begin(), letters.end()).size(), letters.size())
        << letters.join(u' ').toStdString();
    EXPECT_GT(letters.size(), 4);
}

} // namespace

TEST_F(TrayWindowTest, WithoutARecorderOnlyANewOneCanBeMade)
{
    TrayWindow window(recorders, clock);
    EXPECT_EQ(TextOf(window, "discLabel"), u"Aucun graveur virtuel"_s);
    for (const char* name : {"trayButton",
             "insertButton",
             "takeOutButton",
             "deleteButton",
             "timingBox",
             "unpluggedBox",
             "faultButton",
             "clearButton"}) {
        EXPECT_FALSE(IsEnabled(window, name)) << name;
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
    ClickAndAnswer(window, "insertButton", [](QWidget& dialog) { Click(dialog, "putInButton"); });
    EXPECT_EQ(TextOf(window, "discLabel"), u"DVD+R, vierge"_s);
    EXPECT_EQ(TextOf(window, "spaceLabel"), u"0 octets utilisés, 4,70 Go libres"_s);
    Click(window, "trayButton");
    EXPECT_TRUE(recorders.Show(u"A"_s).trayOpen);
    EXPECT_EQ(Find<QPushButton>(window, "trayButton").text(), u"&Fermer le tiroir"_s);
    Click(window, "trayButton");
    EXPECT_FALSE(recorders.Show(u"A"_s).trayOpen);
    Click(window, "takeOutButton");
    EXPECT_FALSE(recorders.Show(u"A"_s).disc);
    InsertMedium(window, u"BD-RE"_s);
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
    InsertMedium(window, u"DVD+R"_s);
    EXPECT_TRUE(TextOf(window, "noticeLabel").endsWith(u"Le tiroir ne se ferme pas."));
    Click(window, "trayButton");
    EXPECT_TRUE(TextOf(window, "noticeLabel").isEmpty());
}

TEST_F(TrayWindowTest, ADriveIsUnpluggedAndTakesRealTime)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    Click(window, "unpluggedBox");
    Click(window, "timingBox");
    EXPECT_TRUE(recorders.Show(u"A"_s).drive.unplugged);
    EXPECT_TRUE(recorders.Show(u"A"_s).drive.realTiming);
    TrayWindow other(recorders, clock);
    EXPECT_TRUE(Find<QAbstractButton>(other, "unpluggedBox").isChecked());
    EXPECT_TRUE(Find<QAbstractButton>(other, "timingBox").isChecked());
    Click(window, "clearButton");
    EXPECT_FALSE(recorders.Show(u"A"_s).drive.unplugged);
    EXPECT_FALSE(Find<QAbstractButton>(window, "unpluggedBox").isChecked());
    Click(window, "timingBox");
    EXPECT_FALSE(recorders.Show(u"A"_s).drive.realTiming);
}

TEST_F(TrayWindowTest, ARecorderGoesOnceThePersonAgrees)
{
    recorders.Create(u"A"_s);
    recorders.Create(u"B"_s);
    TrayWindow window(recorders, clock);
    QString question;
    const auto answer = [&](const QString& text) {
        ClickAndAnswer(window, "deleteButton", [&](QWidget& box) {
            question = dynamic_cast<QMessageBox&>(box).text();
            for (auto* button : box.findChildren<QPushButton*>()) {
                if (button->text() == text) {
                    button->click();
                    return;
                }
            }
        });
    };
    answer(u"&Non"_s);
    EXPECT_EQ(question, u"Supprimer le graveur virtuel et son disque ? (A : tiroir fermé, vide)"_s);
    EXPECT_EQ(recorders.Names().size(), 2);
    answer(u"&Oui"_s);
    EXPECT_EQ(recorders.Names(), QStringList {u"B"_s});
    EXPECT_EQ(Find<QComboBox>(window, "recorderBox").currentText(), u"B"_s);
    virtualdrive::VirtualDrive drive(recorders.Folder(u"B"_s), clock, pump);
    drive.Lock(false);
    answer(u"&Oui"_s);
    EXPECT_EQ(recorders.Names(), QStringList {u"B"_s}) << "a program uses it";
    EXPECT_FALSE(TextOf(window, "noticeLabel").isEmpty());
}

TEST_F(TrayWindowTest, EveryControlHasANameToBeReadOutAndALetterOfItsOwn)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    ExpectNamed(window);
    EXPECT_FALSE(Find<QWidget>(window, "driveView").accessibleName().isEmpty());
    for (const char* button : {"insertButton", "faultButton"}) {
        ClickAndAnswer(window, button, [](QWidget& dialog) {
            ExpectNamed(dialog);
            Click(dialog, "cancelButton");
        });
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
