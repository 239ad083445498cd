// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/FormatChoice.h"

#include "compilation/CapacityAccount.h"
#include "recorder/RecorderState.h"
#include "shell/ProgramState.h"
#include "tests/recorder/ScriptedMastering.h"
#include "tests/support/FakeClock.h"
#include "tests/support/QtPrinters.h"
#include "tests/wizard/rules/TranscriptFormats.h"
#include "tests/wizard/rules/TranscriptPages.h"
#include "tests/writing/TranscriptScreen.h"
#include "wizard/rules/Navigation.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

/// What every choice begins with.
std::string Beginning(int frame)
{
    return "ReyFrame1(0) goes\nReyFrame1(1) goes\nReyFrame1(2) goes\nReyFrame1(3) goes\n"
           "ReyFrame1("
        + std::to_string(frame)
        + ") comes\nCombo2(2) emptied\n"
          "MultiSession(0) enabled\nMultiSession(1) enabled\nMultiSession(2) enabled\n"
          "MultiSession(0) selected\n";
}

const std::string kOptionsOpen = "root 0 goes\npage 0 comes\n";
const std::string kFormatsAgain = "root 0 comes\n";
const std::string kWait = "root 0 goes\npump\nCorvane7BarWait1 runs\nCorvane7BarWait1 shown\n"
                          "Frame3DWait shown\npump\npointer 11\npointer 1\nFrame3DWait hidden\n";
const std::string kWaitOver = "Corvane7BarWait1 stops\nCorvane7BarWait1 hidden\n";

const std::string kBluRayOptions = "Combo2(0) disabled\nCombo2(1) item 2\nCombo2(1) disabled\n";
const std::string kDvdOptions = "Combo2(0) disabled\nCombo2(1) item 1\nCombo2(1) enabled\n";
const std::string kCdOptions
    = "Combo2(0) enabled\nCombo2(0) item 1\nCombo2(1) item 1\nCombo2(1) enabled\n";

} // namespace

class FormatChoiceTest : public testing::Test {
protected:
    FormatChoiceTest() { recorders.RecorderList.push_back({.RecorderId = u"sr0"_s}); }

    std::string Click(qint16 index)
    {
        transcript.Clear();
        choice.CorvaneButton2(static_cast<shell::DiscFormat>(index));
        return transcript.Text();
    }
    /// What a click shows after the detection has answered.
    std::string AfterDetection()
    {
        const std::string all = Click(3);
        const std::size_t wait = all.find("root 0 goes");
        return wait == std::string::npos ? all : all.substr(wait);
    }

    test::Transcript transcript;
    test::TranscriptScreen burnPage {transcript};
    test::TranscriptPages pages {transcript};
    test::TranscriptFormats screen {transcript};
    test::Script script;
    test::ScriptedMastering mastering {script};
    test::FakePump pump;
    test::FakeClock clock {pump};
    shell::ProgramState state;
    recorder::RecorderState recorders;
    compilation::CapacityAccount capacity {state, QLocale::c()};
    Navigation navigation {state, pages, burnPage};
    FormatChoice choice {{.state = state,
        .recorders = recorders,
        .mastering = mastering,
        .clock = clock,
        .capacity = capacity,
        .screen = screen,
        .pages = pages,
        .burnPage = burnPage,
        .navigation = navigation}};
};

TEST_F(FormatChoiceTest, BluRayLocksTheFileSystem)
{
    EXPECT_EQ(Click(0),
        Beginning(0) + "Label3 \"Disque de données : Blue-Ray\"\n" + kBluRayOptions
            + "Combo2(2) + \"Maximum\"\nCombo2(2) + \"4x\"\nCombo2(2) + \"2x\"\n"
              "Combo2(2) + \"1x\"\nCombo2(2) item 0\nBDOptionButton1(0) selected\n"
            + kOptionsOpen);
    EXPECT_EQ(state.MediaCapacity, 25'000'000'000);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::BdR);
    EXPECT_EQ(state.DiscFormat, shell::DiscFormat::BluRay);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::BurnPages);
}

TEST_F(FormatChoiceTest, DvdLeavesTheFileSystemFree)
{
    EXPECT_EQ(Click(1),
        Beginning(1) + "Label3 \"Disque de données : DVD\"\n" + kDvdOptions
            + "Combo2(2) + \"Maximum\"\nCombo2(2) + \"16x\"\nCombo2(2) + \"8x\"\n"
              "Combo2(2) + \"4x\"\nCombo2(2) + \"2x\"\nCombo2(2) + \"1x\"\nCombo2(2) item 0\n"
              "DVDOptionButton1(0) selected\n"
            + kOptionsOpen);
    EXPECT_EQ(state.MediaCapacity, 4'700'000'000);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::DvdPlusR);
    EXPECT_EQ(capacity.Label10(), u"4.70 Go"_s);
}

TEST_F(FormatChoiceTest, CdLeavesTheDataModeFreeToo)
{
    EXPECT_EQ(Click(2),
        Beginning(2) + "Label3 \"Disque de données : CD\"\n" + kCdOptions
            + "Combo2(2) + \"Maximum\"\nCombo2(2) + \"48x\"\nCombo2(2) + \"32x\"\n"
              "Combo2(2) + \"24x\"\nCombo2(2) + \"16x\"\nCombo2(2) + \"8x\"\nCombo2(2) + \"4x\"\n"
              "Combo2(2) + \"2x\"\nCombo2(2) + \"1x\"\nCombo2(2) item 0\n"
              "CDOptionButton1(0) selected\n"
            + kOptionsOpen);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::CdR);
    EXPECT_EQ(capacity.Label10(), u"640 Mo"_s);
}

TEST_F(FormatChoiceTest, AFixedFormatAsksNothingOfTheDrive)
{
    Click(0);
    Click(1);
    Click(2);
    EXPECT_EQ(script.Text(), "");
}

TEST_F(FormatChoiceTest, AGreyButtonDoesNothingAtAll)
{
    screen.Grey(shell::DiscFormat::Dvd, true);
    state.DiscFormat = shell::DiscFormat::Cd;
    EXPECT_EQ(Click(1), "");
    EXPECT_EQ(state.DiscFormat, shell::DiscFormat::Cd);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::RootPages);
}

TEST_F(FormatChoiceTest, ACompilationThatIsTooLargeStaysOnTheFormats)
{
    state.TotalSizeBytes = 700'000'000;
    const std::string shown = Click(2);
    EXPECT_TRUE(
        shown.ends_with("box 48 \"Velmora\" \"Le disque inséré ne dispose pas de suffisamment "
                        "de place pour graver ce répertoire.<CR LF><CR LF>Veuillez insérer un "
                        "disque de capacité supérieure à 667 Mo \"\n"
            + kFormatsAgain))
        << shown;
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::Failed);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::RootPages);

    EXPECT_TRUE(Click(1).ends_with(kOptionsOpen)) << "a DVD holds it";
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::DvdPlusR);
}

TEST_F(FormatChoiceTest, ACompilationThatFillsTheDiscExactlyGoesOn)
{
    state.TotalSizeBytes = 4'700'000'000;
    EXPECT_TRUE(Click(1).ends_with(kOptionsOpen));
    state.TotalSizeBytes = 4'700'000'001;
    const std::string shown = Click(1);
    EXPECT_NE(shown.find("supérieure à 4482 Mo "), std::string::npos) << shown;
}

TEST_F(FormatChoiceTest, ADetectedCdTakesEverythingFromTheDisc)
{
    EXPECT_EQ(AfterDetection(),
        kWait
            + "Label5 \"CD-R - Place disponible : 736 Mo\"\n"
              "Combo2(2) + \"41x\"\nCombo2(2) + \"27x\"\nCombo2(2) + \"14x\"\nCombo2(2) item 0\n"
            + kCdOptions + kWaitOver + kOptionsOpen);
    EXPECT_EQ(state.MediaCapacity, 359'847.0 * 2048);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::AsDetected);
    EXPECT_EQ(state.DiscFormat, shell::DiscFormat::Cd);
    EXPECT_EQ(capacity.Label10(), u"736 Mo"_s);
}

TEST_F(FormatChoiceTest, TheDetectionAsksForADiscUnderItsOwnLabel)
{
    const std::string shown = Click(3);
    const std::string prompt
        = "box 65 \"Velmora\" \"Merci de mettre un CD dans le lecteur puis cliquer "
          "sur Ok\"\n";
    EXPECT_EQ(shown.find(Beginning(3) + "Label3 \"Disque de données\"\n"), 0U) << shown;
    EXPECT_NE(shown.find(prompt), std::string::npos) << shown;
}

TEST_F(FormatChoiceTest, ADetectedDvdTakesItsOptions)
{
    script.type = 6;
    script.speeds = {10880, 5440};
    const std::string shown = AfterDetection();
    EXPECT_NE(
        shown.find("Combo2(2) + \"16x\"\nCombo2(2) + \"8x\"\nCombo2(2) item 0\n" + kDvdOptions),
        std::string::npos)
        << shown;
    EXPECT_EQ(state.DiscFormat, shell::DiscFormat::Dvd);
}

TEST_F(FormatChoiceTest, ADetectedBluRayDiscShowsSpeedsWithoutMultiples)
{
    script.type = 18;
    script.speeds = {8780, 4390};
    const std::string shown = AfterDetection();
    EXPECT_NE(shown.find("Combo2(2) + \"8780\"\nCombo2(2) + \"4390\"\nCombo2(2) item 0\n"
                  + kBluRayOptions),
        std::string::npos)
        << shown;
    EXPECT_EQ(state.DiscFormat, shell::DiscFormat::BluRay);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::AsDetected);
}

TEST_F(FormatChoiceTest, ADiscWithOneSpeedGetsABlankItem)
{
    script.speeds = {3600};
    EXPECT_NE(AfterDetection().find("Combo2(2) + \"\"\nCombo2(2) item 0\n"), std::string::npos);
}

TEST_F(FormatChoiceTest, AnImportedFileSystemContinuesTheDisc)
{
    script.blank = false;
    EXPECT_NE(AfterDetection().find("MultiSession(1) selected\n"), std::string::npos);
}

TEST_F(FormatChoiceTest, ABlankDiscStartsOne)
{
    EXPECT_EQ(AfterDetection().find("MultiSession(1) selected\n"), std::string::npos);
}

TEST_F(FormatChoiceTest, ADiscOfNoFamilyLeavesFormatAndOptions)
{
    recorders.RecorderList[0].RecorderId = u"@@@@@@@@@@"_s; // an unusable drive
    state.MediaFreeBytes = 1'000'000;
    EXPECT_EQ(Click(3),
        Beginning(3) + "Label3 \"Disque de données\"\n" + kWait
            + "Label5 \"Ce lecteur est indisponible ou n'est pas un graveur. - Place disponible : "
              "1 "
              "Mo\"\n"
            + kWaitOver + kOptionsOpen);
    EXPECT_EQ(state.DiscFormat, shell::DiscFormat::InDrive);
    EXPECT_EQ(state.MediaCapacity, 1'000'000);
}

TEST_F(FormatChoiceTest, CancellingThePromptStaysWithoutAWord)
{
    burnPage.promptAnswer = shell::MessageAnswer::Cancel;
    capacity.ChangeMediaCapacity(640'000'000);
    const std::string shown = Click(3);
    EXPECT_TRUE(shown.ends_with(kFormatsAgain));
    EXPECT_EQ(shown.find("Frame3DWait"), std::string::npos);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::Failed);
    EXPECT_EQ(state.MediaCapacity, 640'000'000) << "the earlier choice's";
}

TEST_F(FormatChoiceTest, AfterACancelledPromptTheCapacityIsStillTested)
{
    burnPage.promptAnswer = shell::MessageAnswer::Cancel;
    state.MediaCapacity = 640'000'000;
    state.TotalSizeBytes = 700'000'000;
    EXPECT_NE(Click(3).find("supérieure à 667 Mo "), std::string::npos);
}

TEST_F(FormatChoiceTest, AnEmptyDriveIsRefusedAndTheFormatsComeBack)
{
    script.mediaSupported = false;
    EXPECT_EQ(AfterDetection(),
        kWait + kWaitOver
            + "Frame3DWait hidden\nbox 48 \"Vérifiez le graveur et son média !\" \"Le graveur est "
              "vide ou "
              "le média est incompatible à la gravure.\"\n"
            + kFormatsAgain);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::Failed);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::RootPages);
}

TEST_F(FormatChoiceTest, ADiscWithoutRoomLeavesTheBarAsItWas)
{
    script.freeBlocks = 0;
    capacity.ChangeMediaCapacity(1000);
    capacity.CalcSpaceOnMedia(900);
    EXPECT_EQ(capacity.BarValue(), 81);
    const std::string shown = Click(3);
    EXPECT_EQ(capacity.BarValue(), 81);
    EXPECT_EQ(capacity.Label10(), u"0 Mo"_s);
    EXPECT_TRUE(shown.ends_with(kFormatsAgain)) << "nothing fits";
}

TEST_F(FormatChoiceTest, ASecondClickDoesntDoubleTheSpeeds)
{
    EXPECT_EQ(Click(1), Click(1)); // the list is emptied each time
}

} // namespace velmora::wizard
