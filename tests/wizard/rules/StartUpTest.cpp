// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/StartUp.h"

#include "mastering/DriveMastering.h"
#include "recorder/RecorderState.h"
#include "shell/CommandString.h"
#include "shell/Settings.h"
#include "store/FileSettingsStore.h"
#include "tests/compilation/CompilationFixture.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeDrive.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/wizard/rules/TranscriptFormats.h"
#include "tests/wizard/rules/TranscriptPages.h"
#include "tests/wizard/rules/TranscriptStart.h"
#include "tests/writing/TranscriptScreen.h"
#include "text/PathText.h"
#include "wizard/rules/Navigation.h"
#include "wizard/rules/RecorderChoice.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

/// Drives that are there, by their ids; an id's first word is the drive's place.
class Drives final : public drive::DriveSource {
public:
    QStringList Ids() override { return ids; }
    drive::DriveRef Open(const QString& id) override
    {
        auto drive = std::make_shared<test::FakeDrive>(id);
        drive->facts.vendor = u"ACME"_s;
        drive->facts.product = u"BURNER"_s;
        drive->facts.paths = {u"/dev/"_s + id.section(u' ', 0, 0)};
        return drive;
    }

    QStringList ids;
};

} // namespace

class StartUpTest : public test::CompilationFixture<test::FakeFiles> {
protected:
    StartUpTest()
    {
        files.names[u"\\data\\Photos\\"_s] = {u"a.jpg"_s};
        files.files[u"\\data\\Photos\\a.jpg"_s] = 5000;
        drives->ids = {u"sr0"_s};
        screen.onCombo1Click = [this] { choice.Combo1(); };
    }

    bool Load(const QString& command)
    {
        return startUp.Form_Load(shell::ParseCommandString(command));
    }
    bool Holds(const std::string& text) const
    {
        return transcript.Text().find(text) != std::string::npos;
    }
    QString Remembered()
    {
        return shell::GetSetting(settings, u"Velmora"_s, u"Drive"_s, u"Default"_s, u"none"_s);
    }

    test::TemporaryFolder folder;
    store::FileSettingsStore settings {QString::fromStdString((folder / "settings.json").string())};
    test::FakePump pump;
    test::FakeClock clock {pump};
    std::shared_ptr<Drives> drives = std::make_shared<Drives>();
    std::unique_ptr<imapi::Mastering> mastering = mastering::MasteringOf({drives}, clock);
    recorder::RecorderState recorders;
    test::Transcript transcript;
    test::TranscriptStart screen {transcript};
    test::TranscriptScreen burnPage {transcript};
    test::TranscriptPages pages {transcript};
    test::TranscriptFormats formats {transcript};
    Navigation navigation {state, pages, burnPage};
    RecorderChoice choice {state, recorders, settings, screen, formats};
    text::ProgramPath chosen;
    StartUp startUp {{.state = state,
        .recorders = recorders,
        .mastering = *mastering,
        .compilation = compilation,
        .settings = settings,
        .screen = screen,
        .navigation = navigation,
        .ChooseFolder = [this] {
            transcript.Tell(u"asks for the folder"_s);
            return chosen;
        }}};
};

TEST_F(StartUpTest, TheStartKeepsItsOrder)
{
    shell::SaveSetting(settings, u"Velmora"_s, u"Option"_s, u"TempDir"_s, u"\\tmp\\"_s);
    drives->ids = {};
    ASSERT_TRUE(Load(u"\\data\\Photos -n Vacances"_s));
    EXPECT_EQ(transcript.Text(),
        "caption \"Velmora\"\n"
        "lblDossier \"Gravure du contenu du dossier :<CR LF>/data/Photos\"\n"
        "Combo1 emptied\n"
        "RepTempTxt \"\\tmp\\\"\n"
        "page 0 goes\npage 1 goes\npage 2 goes\n"
        "tab 1\nlblErase hidden\nroot 0 comes\nroot 1 goes\nroot 2 goes\nroot 3 goes\n"
        "SysImageList made\nListFile set up\n"
        "DiscName \"Vacances\"\n");
    EXPECT_EQ(state.SourceFolder.Text(), u"\\data\\Photos\\"_s);
    EXPECT_EQ(state.MediaCapacity, 26'843'545'600);
    EXPECT_EQ(state.TotalSizeBytes, 5000);
    EXPECT_EQ(list.Count(), 1);
}

TEST_F(StartUpTest, ARecorderIsListedAndChosen)
{
    ASSERT_TRUE(Load(u"\\data\\Photos"_s));
    EXPECT_TRUE(Holds("Combo1 emptied\nCombo1 + \"ACME:BURNER (/dev/sr0)\"\nCombo1 item 0\n"
                      "CorvaneButton2(0) painted 808080\nCorvaneButton2(1) painted C06040\n"))
        << transcript.Text();
    EXPECT_TRUE(Holds("lblGraveur \"Graveur : ACME:BURNER (/dev/sr0)\"\nRepTempTxt "));
    EXPECT_EQ(state.SelectedRecorder, 0);
    EXPECT_EQ(Remembered(), u"ACME:BURNER (/dev/sr0)"_s);
}

TEST_F(StartUpTest, TheRecorderOfTheLastTimeIsChosenAgain)
{
    drives->ids = {u"sr0"_s, u"sr1"_s, u"sr2"_s};
    shell::SaveSetting(
        settings, u"Velmora"_s, u"Drive"_s, u"Default"_s, u"ACME:BURNER (/dev/sr1)"_s);
    ASSERT_TRUE(Load(u"\\data\\Photos"_s));
    EXPECT_EQ(state.SelectedRecorder, 1);
    EXPECT_FALSE(Holds("Combo1 item 0"));
}

TEST_F(StartUpTest, OfTwoEqualItemsTheLastIsChosenAfterTheFirst)
{
    drives->ids = {u"sr0"_s, u"sr0 again"_s};
    shell::SaveSetting(
        settings, u"Velmora"_s, u"Drive"_s, u"Default"_s, u"ACME:BURNER (/dev/sr0)"_s);
    ASSERT_TRUE(Load(u"\\data\\Photos"_s));
    EXPECT_TRUE(Holds("Combo1 item 0\n"));
    EXPECT_EQ(state.SelectedRecorder, 1);
}

TEST_F(StartUpTest, ARecorderThatIsGoneIsForgottenForTheFirst)
{
    shell::SaveSetting(
        settings, u"Velmora"_s, u"Drive"_s, u"Default"_s, u"acme:burner (/dev/sr0)"_s);
    ASSERT_TRUE(Load(u"\\data\\Photos"_s)); // the case counts
    EXPECT_EQ(state.SelectedRecorder, 0);
    EXPECT_EQ(Remembered(), u"ACME:BURNER (/dev/sr0)"_s);
}

TEST_F(StartUpTest, WithoutANameTheDiscIsNamedAfterTheFolder)
{
    for (const QString& command :
        {u"\\data\\Photos"_s, u"\\data\\Photos\\"_s, u"\\data\\Photos|"_s}) {
        transcript.Clear();
        ASSERT_TRUE(Load(command));
        EXPECT_TRUE(Holds("DiscName \"Photos\"\n")) << command.toStdString();
    }
}

TEST_F(StartUpTest, ABarInTheCommandPartsTheName)
{
    ASSERT_TRUE(Load(u"\\data\\Photos|Backup"_s));
    EXPECT_TRUE(Holds("DiscName \"Backup\"\n"));
    ASSERT_TRUE(Load(u"\"\\data\\Photos\" -N Sauvegarde -n rien"_s));
    EXPECT_TRUE(Holds("DiscName \"Sauvegarde\"\n"));
}

TEST_F(StartUpTest, AnOptionWithoutItsBlankIsPartOfThePath)
{
    EXPECT_FALSE(Load(u"\\data\\Photos -n"_s));
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Le répertoire à graver est vide ou n'existe pas !"_s);
}

TEST_F(StartUpTest, WithoutAFolderTheUserIsAsked)
{
    chosen = text::ProgramPath(u"\\data\\Photos"_s);
    ASSERT_TRUE(Load(QString()));
    EXPECT_TRUE(transcript.Text().starts_with("asks for the folder\ncaption \"Velmora\"\n"));
    EXPECT_TRUE(Holds("DiscName \"Photos\"\n"));
}

TEST_F(StartUpTest, AUserWhoGivesUpEndsTheProgramWithoutAWord)
{
    EXPECT_FALSE(Load(QString()));
    EXPECT_EQ(transcript.Text(), "asks for the folder\n");
}

TEST_F(StartUpTest, AFolderOfEmptyFilesIsRefused)
{
    files.files[u"\\data\\Photos\\a.jpg"_s] = 0;
    EXPECT_FALSE(Load(u"\\data\\Photos"_s));
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Le répertoire à graver est vide ou n'existe pas !"_s);
    EXPECT_FALSE(Holds("DiscName"));
}

TEST_F(StartUpTest, AFolderThatCantBeReadIsRefused)
{
    files.names[u"\\data\\Photos\\"_s] += u"lost+found"_s;
    files.unreadable = {u"\\data\\Photos\\lost+found\\"_s};
    EXPECT_FALSE(Load(u"\\data\\Photos"_s));
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(
        messages.shown[0].text, u"Le répertoire à graver est vide ou n'est pas accessible !"_s);
    EXPECT_EQ(messages.shown[0].style, 4112);
}

TEST_F(StartUpTest, WithoutARecorderTheWindowComesAndGoes)
{
    drives->ids = {};
    ASSERT_TRUE(Load(u"\\data\\Photos"_s));
    EXPECT_EQ(Remembered(), u"none"_s);
    transcript.Clear();
    EXPECT_FALSE(startUp.Form_Activate());
    EXPECT_EQ(transcript.Text(),
        "box 48 \"Velmora\" \"Votre système ne semble pas posséder de graveur compatible. \"\n");
}

TEST_F(StartUpTest, AnEmptyFolderIsToldBeforeAMissingRecorder)
{
    drives->ids = {};
    EXPECT_FALSE(Load(u"\\data\\nothing"_s));
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_FALSE(Holds("graveur compatible"));
}

TEST_F(StartUpTest, WithARecorderTheActivationSaysNothing)
{
    ASSERT_TRUE(Load(u"\\data\\Photos"_s));
    transcript.Clear();
    EXPECT_TRUE(startUp.Form_Activate());
    EXPECT_TRUE(startUp.Form_Activate());
    EXPECT_EQ(transcript.Text(), "");
}

TEST_F(StartUpTest, ARelativeFolderIsKnownByItsWholePath)
{
    const auto inside = folder.MakeFolder("Musique");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(inside);
    const QString whole = text::ToProgramPath(std::filesystem::current_path().string()) + u'\\';
    files.names[whole] = {u"b.mp3"_s};
    files.files[whole + u"b.mp3"_s] = 1;
    const bool isLoaded = Load(u"."_s);
    std::filesystem::current_path(before);
    EXPECT_TRUE(isLoaded);
    EXPECT_EQ(state.SourceFolder.Text(), whole);
    EXPECT_TRUE(Holds("DiscName \"Musique\"\n"));
}

TEST_F(StartUpTest, ACurrentFolderThatIsGoneIsNoReasonToFail)
{
    const auto inside = folder.MakeFolder("Musique");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(inside);
    std::filesystem::remove(inside);
    files.names[u"Photos\\"_s] = {u"b.jpg"_s};
    files.files[u"Photos\\b.jpg"_s] = 1;
    bool isLoaded = false;
    EXPECT_NO_THROW(isLoaded = Load(u"Photos"_s));
    std::filesystem::current_path(before);
    EXPECT_TRUE(isLoaded);
}

} // namespace velmora::wizard
