// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Letters.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"
#include "tests/tray/TrayWindowBench.h"

#include <QLineEdit>
#include <QSpinBox>

#include <fstream>
#include <string>

namespace velmora::tray {

using TrayDialogsTest = TrayWindowBench;

TEST_F(TrayDialogsTest, ADiscGoesInInTheStateThatWasAskedFor)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    ClickAndAnswer(window, "insertButton", [](QWidget& dialog) {
        Choose(dialog, "mediumBox", u"DVD-R"_s);
        Choose(dialog, "stateBox", u"Ouvert : une autre session peut suivre"_s);
        Click(dialog, "protectedBox");
        Click(dialog, "upsideDownBox");
        test::FindChild<QSpinBox>(dialog, "readyBox").setValue(20);
        Click(dialog, "putInButton");
    });
    const virtualdrive::Disc disc = *recorders.Show(u"A"_s).disc;
    EXPECT_EQ(disc.medium->key, u"dvd-r");
    EXPECT_EQ(disc.sessions.size(), 1);
    EXPECT_FALSE(disc.closed);
    EXPECT_TRUE(disc.writeProtected);
    EXPECT_TRUE(disc.upsideDown);
    EXPECT_EQ(disc.secondsToReady, 20);
    EXPECT_TRUE(TextOf(window, "discLabel").contains(u"à l'envers"));
}

TEST_F(TrayDialogsTest, AClosedAndAFullDiscTakeNoMore)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    const auto insert = [&](const QString& state) {
        ClickAndAnswer(window, "insertButton", [&](QWidget& dialog) {
            Choose(dialog, "mediumBox", u"CD-R (80 min)"_s);
            Choose(dialog, "stateBox", state);
            Click(dialog, "putInButton");
        });
        return *recorders.Show(u"A"_s).disc;
    };
    const virtualdrive::Disc closed = insert(u"Fermé : plus rien ne peut suivre"_s);
    EXPECT_TRUE(closed.closed);
    EXPECT_LT(closed.sessions.first().sectors, closed.capacity);
    const virtualdrive::Disc full = insert(u"Plein : une session prend toute la place"_s);
    EXPECT_EQ(full.sessions.first().sectors, full.capacity);
}

TEST_F(TrayDialogsTest, ADiscHoldsTheImageThatWasChosen)
{
    const std::string image = (folder / "image.iso").string();
    std::ofstream(image) << std::string(std::size_t {3} * 2048, 'x');
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    ClickAndAnswer(window, "insertButton", [&](QWidget& dialog) {
        EXPECT_FALSE(IsEnabled(dialog, "imageEdit")) << "a blank disc holds nothing";
        Choose(dialog, "mediumBox", u"Disque pressé, aux mesures de l'image"_s);
        EXPECT_FALSE(IsEnabled(dialog, "stateBox"));
        EXPECT_FALSE(IsEnabled(dialog, "putInButton"));
        test::FindChild<QLineEdit>(dialog, "imageEdit").setText(QString::fromStdString(image));
        EXPECT_TRUE(IsEnabled(dialog, "putInButton"));
        Click(dialog, "putInButton");
    });
    const virtualdrive::Disc pressed = *recorders.Show(u"A"_s).disc;
    EXPECT_EQ(pressed.medium->recording, virtualdrive::Recording::Pressed);
    EXPECT_EQ(pressed.capacity, 3);
}

TEST_F(TrayDialogsTest, ARecordedDiscHoldsTheImageAndABlankOneNothing)
{
    const std::string image = (folder / "image.iso").string();
    std::ofstream(image) << std::string(std::size_t {3} * 2048, 'x');
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    const auto insert = [&](const QString& state) {
        ClickAndAnswer(window, "insertButton", [&](QWidget& dialog) {
            Choose(dialog, "stateBox", state);
            test::FindChild<QLineEdit>(dialog, "imageEdit").setText(QString::fromStdString(image));
            Click(dialog, "putInButton");
        });
        return *recorders.Show(u"A"_s).disc;
    };
    EXPECT_EQ(insert(u"Fermé : plus rien ne peut suivre"_s).sessions.first().sectors, 3);
    EXPECT_TRUE(insert(u"Vierge"_s).sessions.isEmpty());
}

TEST_F(TrayDialogsTest, EveryButtonHasALetterOfItsOwn)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    test::ExpectLettersOfTheirOwn(window);
    Click(window, "trayButton"); // it says the contrary now
    test::ExpectLettersOfTheirOwn(window);
    for (const char* button : {"insertButton", "faultButton", "deleteButton"}) {
        ClickAndAnswer(window, button, [](QWidget& dialog) {
            test::ExpectLettersOfTheirOwn(dialog);
            dialog.close();
        });
    }
    EXPECT_EQ(recorders.Names(), QStringList {u"A"_s});
}

TEST_F(TrayDialogsTest, TheImageIsChosenInAFrenchDialog)
{
    const std::string image = (folder / "essai.img").string();
    std::ofstream(image) << std::string(2048, 'x');
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    ClickAndAnswer(window, "insertButton", [&](QWidget& dialog) {
        Choose(dialog, "stateBox", u"Fermé : plus rien ne peut suivre"_s);
        const test::ModalWindow person([&](QWidget& files) {
            test::ExpectLettersOfTheirOwn(files);
            test::FindChild<QLineEdit>(files, "fileNameEdit")
                .setText(QString::fromStdString(image));
            for (auto* button : files.findChildren<QPushButton*>()) {
                if (button->text() == u"&Ouvrir"_s) button->click();
            }
        });
        Click(dialog, "browseButton");
        EXPECT_TRUE(person.WasThere());
        EXPECT_EQ(
            test::FindChild<QLineEdit>(dialog, "imageEdit").text(), QString::fromStdString(image));
        Click(dialog, "putInButton");
    });
    EXPECT_EQ(recorders.Show(u"A"_s).disc->sessions.size(), 1);
}

TEST_F(TrayDialogsTest, ACancelledDialogChangesNothing)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    for (const char* button : {"insertButton", "faultButton"}) {
        ClickAndAnswer(window, button, [](QWidget& dialog) { Click(dialog, "cancelButton"); });
    }
    EXPECT_FALSE(recorders.Show(u"A"_s).disc);
    EXPECT_TRUE(recorders.Show(u"A"_s).faults.isEmpty());
}

TEST_F(TrayDialogsTest, EveryFaultCanBePlannedAndForgotten)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    int count = 1;
    for (int index = 0; index < count; ++index) {
        ClickAndAnswer(window, "faultButton", [&](QWidget& dialog) {
            auto& kinds = test::FindChild<QComboBox>(dialog, "kindBox");
            count = kinds.count();
            kinds.setCurrentIndex(index);
            auto& sector = test::FindChild<QSpinBox>(dialog, "sectorBox");
            sector.setValue(100 + index);
            Click(dialog, "planButton");
        });
    }
    QStringList planned;
    for (const virtualdrive::Fault& fault : recorders.Show(u"A"_s).faults) {
        planned.append(virtualdrive::KeyOf(fault.kind) + u' ' + QString::number(fault.sector));
    }
    EXPECT_EQ(planned.join(u", "_s),
        u"medium 100, streaming 101, removed 102, unplugged 103, altered 104, swallowed 105, "
        u"read 106, slow-read 107, swapped 108, vanished 109, never-ready 0, tray 0, "
        u"erase 0"_s);
    EXPECT_TRUE(
        TextOf(window, "faultsLabel")
            .startsWith(
                u"Pannes prévues : erreur d'écriture au secteur 100 ; données trop lentes"));
    Click(window, "clearButton");
    EXPECT_TRUE(recorders.Show(u"A"_s).faults.isEmpty());
    EXPECT_EQ(TextOf(window, "faultsLabel"), QString());
    EXPECT_FALSE(IsEnabled(window, "clearButton"));
}

TEST_F(TrayDialogsTest, AFaultCanLast)
{
    recorders.Create(u"A"_s);
    TrayWindow window(recorders, clock);
    ClickAndAnswer(window, "faultButton", [](QWidget& dialog) {
        Choose(dialog, "kindBox", u"Tiroir qui ne se ferme pas"_s);
        Click(dialog, "lastingBox");
        Click(dialog, "planButton");
    });
    EXPECT_TRUE(recorders.Show(u"A"_s).faults.first().lasting);
    EXPECT_EQ(
        TextOf(window, "faultsLabel"), u"Panne prévue : tiroir qui ne se ferme pas, durable"_s);
}

} // namespace velmora::tray
