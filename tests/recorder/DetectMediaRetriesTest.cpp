// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/recorder/DetectMediaBench.h"

namespace velmora::test {

class DetectMediaRetriesTest : public DetectMediaBench { };

TEST_F(DetectMediaRetriesTest, AnUnsupportedRecorderTakesSixTriesAndSixPauses)
{
    script.recorderSupported = false;
    EXPECT_EQ(Detect(), u"Ce graveur n'est pas supporté"_s);

    std::string six;
    for (int i = 0; i < 6; ++i) {
        six += "IsRecorderSupported\nPause 5\n";
    }
    EXPECT_EQ(script.Text(), kOpening + kBusy + six + "pointer 1\n");
    EXPECT_EQ(doors.seconds, 30);
}

TEST_F(DetectMediaRetriesTest, AnUnsupportedDiscTakesSixTriesAndSixPauses)
{
    script.mediaSupported = false;
    EXPECT_EQ(Detect(), u"Le graveur est vide ou le média ne peut être gravé"_s);

    std::string six;
    for (int i = 0; i < 6; ++i) {
        six += "IsCurrentMediaSupported\nPause 5\n";
    }
    EXPECT_EQ(script.Text(), kOpening + kBusy + "IsRecorderSupported\n" + six + "pointer 1\n");
    EXPECT_EQ(doors.seconds, 30);
}

TEST_F(DetectMediaRetriesTest, ADiscThatComesInTheThirdTryIsTaken)
{
    script.mediaSupported = false;
    script.onLine = [this](const std::string& line) {
        if (line == "Pause 5" && script.Count(line) == 2) {
            script.mediaSupported = true;
        }
    };
    EXPECT_EQ(Detect(), u"    CD-R"_s);
    EXPECT_EQ(script.Count("IsCurrentMediaSupported"), 3);
    EXPECT_EQ(doors.seconds, 10);
}

TEST_F(DetectMediaRetriesTest, AFailingQuestionIsRepeatedWithoutCostingATry)
{
    script.mediaSupported = false;
    script.Fail("IsCurrentMediaSupported", kNotReady, 6);
    EXPECT_EQ(Detect(), u"Le graveur est vide ou le média ne peut être gravé"_s);
    EXPECT_EQ(script.Count("IsCurrentMediaSupported"), 12);
    EXPECT_EQ(doors.seconds, 60);
}

TEST_F(DetectMediaRetriesTest, TheSeventhFailureOfAStatementIsFinal)
{
    for (const char* line : {"new MsftDiscRecorder2",
             "InitializeDiscRecorder sr0",
             "new MsftDiscFormat2Data",
             "Recorder =",
             "IsRecorderSupported",
             "IsCurrentMediaSupported",
             "ClientName",
             "CurrentMediaStatus",
             "CurrentPhysicalMediaType",
             "SupportedWriteSpeeds",
             "CurrentWriteSpeed",
             "RequestedWriteSpeed",
             "CurrentRotationTypeIsPureCAV",
             "new MsftFileSystemImage",
             "ChooseImageDefaultsForMediaType 2",
             "freeMediaBlocks"}) {
        const double before = doors.seconds;
        const int calls = script.Count(line);
        script.Fail(line, kNotReady, 7);
        EXPECT_EQ(Detect(), TextOfNumber(1062600187)) << line;
        EXPECT_EQ(doors.seconds - before, 30) << line;
        EXPECT_EQ(script.Count(line) - calls, 7) << line;
        EXPECT_TRUE(script.Text().ends_with("pointer 1\n")) << line;
    }
}

TEST_F(DetectMediaRetriesTest, SixFailuresOfAStatementAreWaitedOut)
{
    script.Fail("CurrentMediaStatus", kNotReady, 6);
    EXPECT_EQ(Detect(), u"    CD-R"_s);
    EXPECT_EQ(doors.seconds, 30);
}

TEST_F(DetectMediaRetriesTest, DifferentFailuresShareTheRetries)
{
    script.Fail("IsRecorderSupported", kNotReady, 2);
    script.Fail("CurrentMediaStatus", kNotReady, 3);
    script.Fail("SupportedWriteSpeeds", -1062600185, 2);
    EXPECT_EQ(Detect(), TextOfNumber(1062600185));
    EXPECT_EQ(doors.seconds, 30);
}

TEST_F(DetectMediaRetriesTest, TheRetriesBeginAnewBehindThePromptAndAroundTheSpeedSettings)
{
    script.Fail("InitializeDiscRecorder sr0", kNotReady, 6);
    script.Fail("CurrentMediaStatus", kNotReady, 6);
    script.Fail("CurrentWriteSpeed", kNotReady, 6);
    script.Fail("freeMediaBlocks", kNotReady, 6);
    EXPECT_EQ(Detect(), u"    CD-R"_s);
    EXPECT_EQ(doors.seconds, 120);
}

TEST_F(DetectMediaRetriesTest, WithoutRetryReadTheSettingsAndTheRoomGetNoRetry)
{
    retries = false;
    for (const char* line : {"CurrentWriteSpeed", "RequestedWriteSpeed", "freeMediaBlocks"}) {
        script.Fail(line, kNotReady);
        EXPECT_EQ(Detect(), TextOfNumber(1062600187)) << line;
    }
    EXPECT_EQ(doors.seconds, 0);

    script.Fail("CurrentMediaStatus", kNotReady, 6); // these come before
    EXPECT_EQ(Detect(), u"    CD-R"_s);
    EXPECT_EQ(doors.seconds, 30);
}

TEST_F(DetectMediaRetriesTest, AFailureWithAPositiveNumberOfTheTableIsToldInItsWords)
{
    script.Fail("CurrentMediaStatus", 11141124, 7);
    EXPECT_EQ(Detect(),
        u"Le graveur est vide ou le média n'est pas supporté : erreur La vitesse d'écriture "
        u"choisie n'est pas supporté par le graveur. La vitesse a été ajustée."_s);
}

TEST_F(DetectMediaRetriesTest, AFailureBehindTheSpeedsLeavesThemFilled)
{
    script.Fail("freeMediaBlocks", kNotReady, 7);
    Detect();
    EXPECT_EQ(speeds.size(), 3U);
    EXPECT_TRUE(blank);
}

} // namespace velmora::test
