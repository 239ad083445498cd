// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/WizardFixture.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <set>

namespace velmora::test {

class BurnWayTest : public WizardFixture {
protected:
    bool IsDiscWritten() const
    {
        const auto recorder = Recorder();
        return recorder.disc && !recorder.disc->sessions.isEmpty();
    }
};

TEST_F(BurnWayTest, AFolderBecomesADisc)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s) << Log().toStdString();
    EXPECT_TRUE(Log().contains(u"Vitesse de gravure retenue : "_s));
    EXPECT_TRUE(Log().endsWith(u"Gravure effectuée avec succès."_s));
    EXPECT_TRUE(IsDiscWritten());
    EXPECT_EQ(companion.starts, 1);
    EXPECT_TRUE(companion.isFinished);
    EXPECT_EQ(Find<QProgressBar>("Corvane7ProgressBar1").value(), 100);
    EXPECT_TRUE(IsOnScreen("BurnButton_0"));
    EXPECT_FALSE(IsOnScreen("BurnButton_2"));
    Click("CorvaneButton1");
    EXPECT_FALSE(window->isVisible()) << "after a disc the way back is the way out";
}

TEST_F(BurnWayTest, TheCompanionsButtonStopsTheBurn)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    When(u"Progression"_s, [this] { companion.isStopAsked = true; });
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("Label14"), u"Annulation de la gravure par l'utilisateur"_s);
    EXPECT_FALSE(Log().contains(u"Gravure effectuée avec succès."_s));
    EXPECT_TRUE(IsOnScreen("BurnButton_0"));
    EXPECT_FALSE(IsOnScreen("BurnButton_2"));
    EXPECT_EQ(Find<QProgressBar>("Corvane7ProgressBar1").value(), 0);
}

TEST_F(BurnWayTest, ADetectedDiscOpensItsOptions)
{
    OpenWith(u"cd-r"_s);
    Click("CorvaneButton2_3");
    EXPECT_TRUE(IsOnScreen("ReyFrame1_3"));
    EXPECT_TRUE(TextOf("Label5").startsWith(u"CD-R - Place disponible : "_s));
    EXPECT_EQ(TextOf("Label3"), u"Disque de données"_s);
    EXPECT_EQ(Find<QComboBox>("Combo2_0").currentText(), u"Mode 2 / XA"_s);
    EXPECT_NE(Find<QComboBox>("Combo2_2").itemText(0), u"Maximum"_s);
    Click("CorvSuivant");
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s) << Log().toStdString();
    EXPECT_TRUE(IsDiscWritten());
}

TEST_F(BurnWayTest, AnEmptyDriveIsRefusedOnTheFormats)
{
    OpenWith({});
    Click("CorvaneButton2_3");
    ASSERT_EQ(boxes.shown.size(), 2U);
    EXPECT_EQ(boxes.shown[1].title, u"Vérifiez le graveur et son média !"_s);
    EXPECT_TRUE(IsOnScreen("RootContainer1_0"));
    EXPECT_FALSE(IsOnScreen("Frame3DWait"));
}

TEST_F(BurnWayTest, PatienceIsAskedForWhileADiscThatCannotBeBurnedIsTriedAgain)
{
    OpenWith(u"dvd-rom"_s);
    bool wasAsked = false;
    pump.onPump = [this, &wasAsked] { wasAsked = wasAsked || IsOnScreen("DetectionWait"); };
    Click("CorvaneButton2_3");
    EXPECT_TRUE(wasAsked);
    EXPECT_FALSE(IsOnScreen("DetectionWait"));
    EXPECT_EQ(boxes.shown.back().title, u"Vérifiez le graveur et son média !"_s);
}

TEST_F(BurnWayTest, EveryFormatHasItsFrameAndItsSpeeds)
{
    OpenWith(u"dvd+r"_s);
    const std::vector<std::pair<const char*, int>> formats {
        {"CorvaneButton2_0", 4}, {"CorvaneButton2_1", 6}, {"CorvaneButton2_2", 9}};
    const char* const frames[] {"ReyFrame1_0", "ReyFrame1_1", "ReyFrame1_2"};
    for (std::size_t i = 0; i < formats.size(); ++i) {
        Click(formats[i].first);
        EXPECT_TRUE(IsOnScreen(frames[i]));
        EXPECT_EQ(Find<QComboBox>("Combo2_2").count(), formats[i].second);
        EXPECT_EQ(Find<QComboBox>("Combo2_2").currentText(), u"Maximum"_s);
        EXPECT_TRUE(Find<QRadioButton>("MultiSession_0").isChecked());
        Click("CorvaneButton1");
    }
    EXPECT_TRUE(IsOnScreen("RootContainer1_0"));
}

TEST_F(BurnWayTest, AnOptionMeasuresTheListAnew)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_2");
    Click("CDOptionButton1_2");
    Click("CorvFichiers");
    EXPECT_EQ(TextOf("Label10"), u"800 Mo"_s);
    EXPECT_TRUE(IsOnScreen("BurnDataContainer1_1"));
    EXPECT_FALSE(IsOnScreen("BurnDataContainer1_0")) << "the list lies over the options";
    EXPECT_TRUE(Find<QAbstractButton>("CorvFermer").hasFocus());
    Click("CorvFermer");
    EXPECT_TRUE(IsOnScreen("BurnDataContainer1_0"));
}

TEST_F(BurnWayTest, TheTabsAreLockedAfterTheFormat)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    auto& tabs = Find<QTabBar>("CorvaneTab1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_TRUE(IsOnScreen("BurnDataContainer1_0"));
    Click("CorvaneButton1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_TRUE(IsOnScreen("RootContainer1_3"));
}

TEST_F(BurnWayTest, TheListThatNextReachesLeavesABlankPlace)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Find<QAbstractButton>("NextButton").click();
    EXPECT_TRUE(IsOnScreen("BurnDataContainer1_1"));
    EXPECT_TRUE(Find<QWidget>("DiscName").hasFocus());
    Click("CorvFermer");
    for (const char* page : {"BurnDataContainer1_0",
             "BurnDataContainer1_1",
             "BurnDataContainer1_2",
             "RootContainer1_0",
             "RootContainer1_3"}) {
        EXPECT_FALSE(IsOnScreen(page)) << page;
    }
    Find<QAbstractButton>("NextButton").click();
    EXPECT_TRUE(IsOnScreen("BurnDataContainer1_2"));
}

TEST_F(BurnWayTest, AFolderBecomesAnImage)
{
    OpenWith(u"dvd+r"_s);
    const QString image = FolderPath("image.iso");
    chooser.files = {image};
    GoToBurn("CorvaneButton2_1");
    Click("BurnButton_1");
    EXPECT_EQ(TextOf("Label14"), u"Sauvegarde de l'image disque réalisée avec succès"_s)
        << Log().toStdString();
    EXPECT_GT(std::filesystem::file_size(folder / "image.iso"), 501'000U);
    EXPECT_FALSE(IsDiscWritten());
    EXPECT_EQ(chooser.questions, QStringList {u"Saisir le nom de l'image ISO"_s});
    Click("CorvaneButton1");
    EXPECT_TRUE(IsOnScreen("RootContainer1_0")) << "no disc was written: the way back leads back";
}

TEST_F(BurnWayTest, AnImageNeverTakesThePlaceOfASource)
{
    OpenWith(u"dvd+r"_s);
    chooser.files = {FolderPath("Photos/2024/montagne.jpg")};
    GoToBurn("CorvaneButton2_1");
    Click("BurnButton_1");
    ASSERT_FALSE(boxes.shown.empty());
    EXPECT_EQ(boxes.shown.back().title, u"Fichier à graver"_s);
    EXPECT_EQ(chooser.questions.size(), 2) << "another name is asked for";
    EXPECT_EQ(std::filesystem::file_size(folder / "Photos/2024/montagne.jpg"), 200'000U);
}

TEST_F(BurnWayTest, AStopByTheButtonEndsTheWrite)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    When(u"Progression"_s, [this] { Click("BurnButton_2"); });
    Click("BurnButton_0");
    EXPECT_EQ(TextOf("Label14"), u"Annulation de la gravure par l'utilisateur"_s)
        << Log().toStdString();
    EXPECT_TRUE(Log().contains(u"Interruption du processus de gravure..."_s));
    EXPECT_FALSE(Log().contains(u"Une erreur est survenue"_s));
    EXPECT_TRUE(IsOnScreen("BurnButton_0"));
    Click("CorvaneButton1");
    EXPECT_FALSE(IsOnScreen("BurnDataContainer1_2")) << "hiding the button frees the mouse";
}

TEST_F(BurnWayTest, WhileADiscIsWrittenNothingElseTakesTheMouse)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    When(u"Progression"_s, [this] { Click("CorvaneButton1"); });
    Click("BurnButton_0");
    EXPECT_TRUE(IsOnScreen("BurnDataContainer1_2"));
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s);
}

TEST_F(BurnWayTest, ClosingTheWindowWaitsForTheDisc)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    bool wasClosed = true;
    When(u"Progression"_s, [&] {
        wasClosed = window->close();
        EXPECT_TRUE(IsOnScreen("closeNotice"));
    });
    Click("BurnButton_0");
    EXPECT_FALSE(wasClosed);
    EXPECT_TRUE(IsDiscWritten());
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s);
    EXPECT_FALSE(window->isVisible()) << "it closes when the disc is done";
}

TEST_F(BurnWayTest, AClosedWindowStaysUntilAFailureWasSeen)
{
    OpenWith(u"dvd+r"_s);
    recorders.Plan(u"graveur"_s, {.kind = virtualdrive::FaultKind::MediumError, .sector = 300});
    GoToBurn("CorvaneButton2_1");
    When({}, [&] { window->close(); }); // at once
    ClickAtOnce("BurnButton_0");
    EXPECT_TRUE(Log().contains(u"Une erreur est survenue"_s)) << Log().toStdString();
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(IsOnScreen("closeNotice"));

    EXPECT_TRUE(window->close()) << "the second wish is fulfilled";
}

TEST_F(BurnWayTest, TheEndOfTheProgramStopsTheWriteAndClosesTheWindow)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    When(u"Progression"_s, [&] { wizard->End(); });
    Click("BurnButton_0");
    EXPECT_TRUE(Log().contains(u"Interruption du processus de gravure..."_s))
        << Log().toStdString();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(BurnWayTest, TheEndOfTheProgramDoesNotWaitForAnAnswer)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    boxes.onBox = [this](QMessageBox&) { wizard->End(); };
    Click("BurnButton_0");
    EXPECT_FALSE(window->isVisible());
    QApplication::restoreOverrideCursor();
}

// The panel of a run lies over the burn page; a detection for the choice of format has one of
// its own over the formats.
TEST_F(BurnWayTest, EachPageHasItsWaitPanelWhileItsDiscIsLookedAt)
{
    OpenWith(u"cd-r"_s);
    std::set<QString> seen;
    pump.onPump = [this, &seen] {
        const QString page = IsOnScreen("RootContainer1_0")            ? u"formats"_s
            : IsOnScreen("BurnButton_2") || IsOnScreen("BurnButton_0") ? u"burn"_s
                                                                       : u"none"_s;
        if (IsOnScreen("DetectionWait")) seen.insert(page + u": detection"_s);
        if (IsOnScreen("Frame3DWait")) seen.insert(page + u": run"_s);
    };
    Click("CorvaneButton2_3");
    EXPECT_EQ(seen, (std::set {u"formats: detection"_s, u"none: run"_s}));
    EXPECT_FALSE(IsOnScreen("DetectionWait"));
    EXPECT_FALSE(IsOnScreen("Frame3DWait"));

    seen.clear();
    Click("CorvSuivant");
    Click("BurnButton_0");
    EXPECT_EQ(seen, std::set {u"burn: run"_s});
    EXPECT_FALSE(IsOnScreen("DetectionWait"));
    EXPECT_FALSE(IsOnScreen("Frame3DWait"));
}

TEST_F(BurnWayTest, ACancelledPromptLeavesTheWaitPanel)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    boxes.answers = {u"Annuler"_s};
    Click("BurnButton_0");
    EXPECT_TRUE(IsOnScreen("Frame3DWait"));
    EXPECT_TRUE(IsOnScreen("Corvane7BarWait1"));
    EXPECT_TRUE(IsOnScreen("BurnButton_0"));
    EXPECT_FALSE(Log().contains(u"erreur"_s));
    QApplication::restoreOverrideCursor();
}

TEST_F(BurnWayTest, AnEmptiedListIsNotBurned)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Click("CorvFichiers");
    auto& list = Find<QAbstractItemView>("ListFile");
    boxes.answers = {u"Oui"_s, u"Oui"_s, u"Oui"_s};
    for (int row = 0; row < 3; ++row) {
        list.setCurrentIndex(list.model()->index(0, 0));
        Click("CorvaneButton5");
    }
    EXPECT_EQ(list.model()->rowCount(), 0);
    EXPECT_EQ(Find<QProgressBar>("Corvane7CalcProgressBar1").value(), 0);
    Click("CorvFermer");
    Click("CorvSuivant");
    Click("BurnButton_0");
    EXPECT_TRUE(Log().contains(u"Aucun fichier n'a été sélectionné pour la gravure !"_s));
    EXPECT_FALSE(IsDiscWritten());
}

TEST_F(BurnWayTest, AFolderAndAFileCanBeAdded)
{
    OpenWith(u"dvd+r"_s);
    folder.MakeFile("Musique/chanson.mp3", 4'000'000);
    folder.MakeFile("notes.txt", 2'000);
    Click("CorvaneButton2_1");
    Click("CorvFichiers");
    chooser.folder = FolderPath("Musique");
    Click("CorvaneButton3");
    chooser.files = {FolderPath("notes.txt")};
    Click("CorvaneButton4");
    EXPECT_EQ(Find<QAbstractItemView>("ListFile").model()->rowCount(), 5);
    EXPECT_EQ(TextOf("Label11"), u"4 Mo"_s);
}

TEST_F(BurnWayTest, ADesktopWithoutAFileManagerIsToldAndTheWindowStays)
{
    if (QGuiApplication::platformName() != "offscreen"_L1) {
        GTEST_SKIP() << "this desktop may have a file manager";
    }
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Click("CorvFichiers");
    Click("CorvaneButton8");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text,
        u"Aucun gestionnaire de fichiers n'a pu être ouvert. (Erreur n° 53)"_s);
    Click("CorvFermer");
    EXPECT_TRUE(IsOnScreen("CorvFichiers")) << "the window goes on";
}

} // namespace velmora::test
