// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/WizardFixture.h"

#include "shell/Settings.h"
#include "wizard/controls/FormatTile.h"

namespace velmora::test {

class StartWayTest : public WizardFixture {
protected:
    std::vector<Boxes::Box> Only(const QString& text) const { return {{u"Velmora"_s, text}}; }
};

TEST_F(StartWayTest, TheWindowComesUpOnTheFormats)
{
    OpenWith(u"dvd+r"_s);
    EXPECT_EQ(window->windowTitle(), u"Velmora"_s);
    EXPECT_TRUE(IsOnScreen("RootContainer1_0"));
    EXPECT_TRUE(TextOf("lblDossier").startsWith(u"Gravure du contenu du dossier :\r\n/"_s));
    EXPECT_TRUE(TextOf("lblGraveur").startsWith(u"Graveur : VELMORA:"_s))
        << TextOf("lblGraveur").toStdString();
    EXPECT_EQ(Find<QLineEdit>("DiscName").text(), u"Photos"_s);
    EXPECT_EQ(Find<QAbstractItemView>("ListFile").model()->rowCount(), 3);
    EXPECT_EQ(TextOf("Label11"), u"501 Ko"_s);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(shell::GetSetting(settings, u"Velmora"_s, u"Drive"_s, u"Default"_s, {}),
        Find<QComboBox>("Combo1").currentText());
}

TEST_F(StartWayTest, ADoubleClickOnTheWayBackDoesNotQuit)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Click("CorvaneButton1");
    ClickAtOnce("CorvaneButton1");
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(IsOnScreen("RootContainer1_0"));
    Click("CorvaneButton1");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(StartWayTest, AnEraseNeedsNoFolder)
{
    MakeRecorder(u"graveur"_s, u"cd-rw"_s);
    ASSERT_TRUE(LoadTools());
    window->show();
    EXPECT_TRUE(IsOnScreen("RootContainer1_3"));
    EXPECT_FALSE(IsOnScreen("offeredImage"));
    EXPECT_EQ(Find<QTabBar>("CorvaneTab1").currentIndex(), 1);
    EXPECT_EQ(chooser.questions, QStringList());
}

TEST_F(StartWayTest, AnImageOfTheStartIsNotAskedForOnce)
{
    MakeRecorder(u"graveur"_s, u"dvd+r"_s);
    folder.MakeFile("photos.iso", 4096);
    const text::ProgramPath image(text::ToProgramPath((folder / "photos.iso").string()));
    ASSERT_TRUE(LoadTools(image));
    window->show();
    EXPECT_TRUE(IsOnScreen("RootContainer1_3"));
    EXPECT_TRUE(TextOf("offeredImage").endsWith(u"/photos.iso"_s));
    EXPECT_TRUE(Recorder().disc->sessions.isEmpty()) << "nothing is burned before a click";
    Click("BurnISO");
    EXPECT_EQ(chooser.questions, QStringList());
    EXPECT_FALSE(Log().isEmpty());
    EXPECT_FALSE(Find<QWidget>("offeredImage").isVisibleTo(&Find<QWidget>("RootContainer1_3")));
    ASSERT_TRUE(LoadTools());
    window->show();
    Click("BurnISO");
    EXPECT_EQ(chooser.questions.size(), 1);
}

TEST_F(StartWayTest, NothingOfTheHiddenPagesAndButtonsIsOnScreen)
{
    OpenWith(u"dvd+r"_s);
    for (const char* name : {"RootContainer1_1",
             "RootContainer1_2",
             "NextButton",
             "PreviousButton",
             "CorvaneButton6",
             "CorvaneButton9",
             "Commandundo",
             "Commandpoke",
             "Frame3DWait",
             "Corvane7BarWait1",
             "lblErase"}) {
        EXPECT_FALSE(IsOnScreen(name)) << name;
    }
}

TEST_F(StartWayTest, AnEmptyFolderEndsTheProgramBeforeTheWindow)
{
    MakeRecorder(u"graveur"_s);
    folder.MakeFolder("vide");
    EXPECT_FALSE(Load(FolderPath("vide")));
    EXPECT_EQ(boxes.shown, Only(u"Le répertoire à graver est vide ou n'existe pas !"_s));
}

TEST_F(StartWayTest, WithoutARecorderTheWindowGoesAfterTheMessage)
{
    ASSERT_TRUE(Load(FolderPath()));
    window->show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_EQ(boxes.shown, Only(u"Votre système ne semble pas posséder de graveur compatible. "_s));
    EXPECT_EQ(TextOf("lblGraveur"), u"Pas de graveur sélectionné"_s);
}

TEST_F(StartWayTest, ADeclinedFolderEndsTheProgramWithoutAWord)
{
    EXPECT_FALSE(Load(QString()));
    EXPECT_EQ(chooser.questions, QStringList {u"Sélectionnez un dossier à Graver"_s});
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(StartWayTest, AChosenFolderIsBurned)
{
    MakeRecorder(u"graveur"_s);
    chooser.folder = FolderPath();
    EXPECT_TRUE(Load(QString()));
    EXPECT_EQ(Find<QLineEdit>("DiscName").text(), u"Photos"_s);
}

TEST_F(StartWayTest, AnotherRecorderRepaintsTheFormats)
{
    virtualdrive::Description writer = virtualdrive::NewDescription();
    writer.drive.profiles = {8, 9}; // only CD-R
    recorders.Create(u"a"_s);
    recorders.Create(u"b"_s, writer);
    Open();
    EXPECT_TRUE(Find<wizard::FormatTile>("CorvaneButton2_0").IsPossible());
    Find<QComboBox>("Combo1").setCurrentIndex(1);
    EXPECT_FALSE(Find<wizard::FormatTile>("CorvaneButton2_0").IsPossible());
    EXPECT_FALSE(Find<wizard::FormatTile>("CorvaneButton2_1").IsPossible());
    EXPECT_TRUE(Find<wizard::FormatTile>("CorvaneButton2_2").IsPossible());
    Click("CorvaneButton2_1");
    EXPECT_TRUE(IsOnScreen("RootContainer1_0")) << "a grey format does nothing";
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(shell::GetSetting(settings, u"Velmora"_s, u"Drive"_s, u"Default"_s, {}),
        Find<QComboBox>("Combo1").itemText(1));
}

} // namespace velmora::test
