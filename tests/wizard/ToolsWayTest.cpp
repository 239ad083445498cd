// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/FakeDrive.h"
#include "tests/wizard/WizardFixture.h"

#include <QDialog>

#include <fstream>

namespace velmora::test {

class ToolsWayTest : public WizardFixture {
protected:
    void OpenTools(const QString& medium)
    {
        OpenWith(medium);
        auto& tabs = Find<QTabBar>("CorvaneTab1");
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
        ASSERT_TRUE(IsOnScreen("RootContainer1_3"));
    }
    /// Clicks what shows a small window, looks at it and closes it.
    void ClickAndLook(const char* button, const std::function<void(QDialog&)>& look)
    {
        bool wasThere = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, window.get(), [&] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                timer.stop();
                wasThere = true;
                look(*dialog);
                dialog->close();
            }
        });
        timer.start();
        Click(button);
        EXPECT_TRUE(wasThere) << button;
    }
};

TEST_F(ToolsWayTest, AnImageIsBurned)
{
    OpenTools(u"cd-r"_s);
    folder.MakeFile("image.iso", 2048 * 300);
    chooser.files = {FolderPath("image.iso")};
    Click("BurnISO");
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s) << Log().toStdString();
    ASSERT_TRUE(Recorder().disc);
    EXPECT_EQ(Recorder().disc->sessions.size(), 1);
    EXPECT_TRUE(IsOnScreen("BurnDataContainer1_2")) << "the page stays";
    for (const char* button : {"BurnButton_0", "BurnButton_1", "BurnButton_2"}) {
        EXPECT_FALSE(IsOnScreen(button)) << button;
    }
    auto& tabs = Find<QTabBar>("CorvaneTab1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_TRUE(IsOnScreen("RootContainer1_3")) << "a click on the tab brings its page back";
}

TEST_F(ToolsWayTest, AnImageThatLacksItsEndIsToldAndNotBurned)
{
    OpenTools(u"cd-r"_s);
    folder.MakeFile("image.iso", 2048 * 300);
    const std::filesystem::path file = folder / "image.iso";
    const std::vector<std::byte> descriptor = PrimaryDescriptor(400);
    std::fstream(file, std::ios::in | std::ios::out | std::ios::binary)
        .seekp(16 * 2048)
        .write(reinterpret_cast<const char*>(descriptor.data()), 2048);
    chooser.files = {FolderPath("image.iso")};
    Click("BurnISO");
    EXPECT_TRUE(Log().contains(
        u"« %1 » est une image incomplète : il lui faut au moins 400 "
        "secteurs, et le fichier n'en a que 300."_s.arg(QString::fromStdString(file.native()))))
        << Log().toStdString();
    EXPECT_FALSE(Log().contains(u"avec succès"_s));
    ASSERT_TRUE(Recorder().disc);
    EXPECT_EQ(Recorder().disc->sessions.size(), 0);
}

TEST_F(ToolsWayTest, WithoutAnImageNothingMoves)
{
    OpenTools(u"cd-r"_s);
    Click("BurnISO");
    EXPECT_EQ(chooser.questions, QStringList {u"Choisir l'image ISO à graver"_s});
    EXPECT_TRUE(IsOnScreen("RootContainer1_3"));
}

TEST_F(ToolsWayTest, ADiscIsErased)
{
    OpenTools(u"cd-rw"_s);
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    QString during;
    pump.onPump = [&] {
        if (TextOf("lblErase").startsWith(u"Temps"_s)) during = TextOf("lblErase");
    };
    Click("EraseDiscbutton");
    EXPECT_EQ(TextOf("lblErase"), u"Effacement réussi"_s);
    EXPECT_TRUE(IsOnScreen("lblErase"));
    EXPECT_TRUE(during.startsWith(u"Temps écoulé / Temps Total Total : "_s));
    ASSERT_EQ(boxes.shown.size(), 3U);
    EXPECT_EQ(boxes.shown[0].title, u"Effacement d'un média réinscriptible"_s);

    auto& tabs = Find<QTabBar>("CorvaneTab1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_FALSE(IsOnScreen("lblErase")) << "the mouse is free, and another tab hides the outcome";
}

TEST_F(ToolsWayTest, ADiscThatCantBeErasedIsToldSo)
{
    OpenTools(u"cd-r"_s);
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_EQ(TextOf("lblErase"), u"Erreur au cours de la procédure d'effacement !"_s);
    EXPECT_EQ(TextOf("eraseCause"),
        u"Rien n'a été effacé. Type de média non géré : prenez un disque réinscriptible."_s);
    EXPECT_TRUE(IsOnScreen("eraseCause"));

    Insert(u"graveur"_s, u"cd-rw"_s);
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_FALSE(IsOnScreen("eraseCause")) << "the next one went well";
}

TEST_F(ToolsWayTest, ADiscIsErasedByADriveThatTakesItsTime)
{
    OpenTools(u"cd-rw"_s);
    recorders.SetRealTiming(u"graveur"_s, true);
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_EQ(TextOf("lblErase"), u"Effacement réussi"_s);
    EXPECT_FALSE(IsOnScreen("eraseCause")) << TextOf("eraseCause").toStdString();
}

TEST_F(ToolsWayTest, WhyAnEraseFailsIsToldBesideItsOutcome)
{
    OpenTools(u"cd-rw"_s);
    recorders.Plan(u"graveur"_s, {.kind = virtualdrive::FaultKind::EraseFails});
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_EQ(TextOf("eraseCause"),
        u"L'effacement n'a pas abouti. Le graveur a refusé l'effacement : essayez un autre disque."_s);
    auto& tabs = Find<QTabBar>("CorvaneTab1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_FALSE(IsOnScreen("eraseCause")) << "another tab hides it";
}

TEST_F(ToolsWayTest, HowAnEraseEndedIsSeenAtAGlance)
{
    OpenTools(u"cd-rw"_s);
    EXPECT_FALSE(IsOnScreen("erasePicture"));
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    bool wasShown = false;
    pump.onPump = [&] {
        wasShown
            = wasShown || (TextOf("lblErase").startsWith(u"Temps"_s) && IsOnScreen("eraseTitle"));
    };
    Click("EraseDiscbutton");
    EXPECT_FALSE(wasShown) << "it was still going on";
    EXPECT_TRUE(IsOnScreen("erasePicture"));
    EXPECT_EQ(TextOf("eraseTitle"), u"Disque effacé"_s);
    const QColor done = Find<QLabel>("eraseTitle").palette().color(QPalette::WindowText);

    recorders.Plan(u"graveur"_s, {.kind = virtualdrive::FaultKind::EraseFails});
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_EQ(TextOf("eraseTitle"), u"L'effacement a échoué"_s);
    EXPECT_EQ(TextOf("lblErase"), u"Effacement réussi"_s) << "as the eraser left it";
    EXPECT_FALSE(Find<QLabel>("lblErase").isEnabled()) << "grey below its title";
    EXPECT_NE(Find<QLabel>("eraseTitle").palette().color(QPalette::WindowText), done);
    boxes.answers = {u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_FALSE(IsOnScreen("erasePicture")) << "the end of the one before";
}

TEST_F(ToolsWayTest, TheEndOfTheProgramEndsAnErase)
{
    OpenTools(u"cd-rw"_s);
    recorders.SetRealTiming(u"graveur"_s, true);
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Oui"_s}; // the whole disc: more than an hour
    double begun = 0;
    pump.onPump = [&] {
        if (begun == 0 && TextOf("lblErase").startsWith(u"Temps"_s)) {
            begun = clock->Timer();
            wizard->End();
        }
    };
    Click("EraseDiscbutton");
    EXPECT_GT(begun, 0);
    EXPECT_LT(clock->Timer() - begun, 10);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(TextOf("eraseCause").isEmpty());
}

TEST_F(ToolsWayTest, AnEraseIsNotBegunAgainstTheUsersWill)
{
    OpenTools(u"cd-rw"_s);
    boxes.answers = {u"Non"_s};
    Click("EraseDiscbutton");
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_FALSE(IsOnScreen("lblErase"));
}

TEST_F(ToolsWayTest, TheSmallWindowsShowTheirOwn)
{
    OpenTools(u"cd-rw"_s);
    ClickAndLook("GraveurPossibilities", [](QDialog& form) {
        EXPECT_EQ(form.windowTitle(), u"Caractéristiques du graveur choisi"_s);
    });
    ClickAndLook("TempSearch",
        [](QDialog& form) { EXPECT_EQ(form.windowTitle(), u"Choix du répertoire temporaire"_s); });
    ClickAndLook("Image1",
        [](QDialog& form) { EXPECT_NE(form.findChild<QLabel*>(u"lblVersion"_s), nullptr); });
}

TEST_F(ToolsWayTest, ATypedTemporaryDirectoryIsTheOneOfTheRun)
{
    OpenTools(u"dvd+r"_s);
    auto& box = Find<QLineEdit>("RepTempTxt");
    box.selectAll();
    QTest::keyClicks(&box, u"/not/there"_s);
    auto& tabs = Find<QTabBar>("CorvaneTab1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
    Click("CorvaneButton2_1");
    Click("CorvSuivant");
    Click("BurnButton_0");
    EXPECT_TRUE(Log().contains(u"(Erreur n° -1062555328)"_s)) << Log().toStdString();
    EXPECT_TRUE(IsOnScreen("BurnButton_0"));
}

} // namespace velmora::test
