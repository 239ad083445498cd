// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/WritingDisplay.h"

#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/writing/RunBench.h"

#include <gtest/gtest.h>

namespace velmora::test {

class WritingDisplayTest : public testing::Test {
protected:
    /// The transcript of one event.
    std::string Event(const imapi::IDiscFormat2DataEventArgs& event)
    {
        transcript.Clear();
        progress.dataWriter1_Update(writer, event);
        return transcript.Text();
    }
    std::string Event(qint32 action) { return Event(WriteEvent(action)); }

    Transcript transcript;
    TranscriptScreen screen {transcript};
    shell::ProgramState state;
    TranscriptCompanion companion {transcript};
    PlatformScript script {transcript};
    TranscriptWriter writer {script};
    writing::WritingDisplay progress {screen, state, companion, QLocale(QLocale::French)};
};

TEST_F(WritingDisplayTest, EveryPhaseIsLogged)
{
    EXPECT_EQ(Event(0), "pump x 101\nlog \"Vérification du média... \"\npump\n");
    EXPECT_EQ(Event(1), "pump x 101\nlog \"Formatage du media... \"\npump\n");
    EXPECT_EQ(Event(5), "pump x 101\nlog \"Ecriture des pistes d'entrée-sortie... \"\npump\n");
    EXPECT_EQ(Event(6), "pump x 101\nlog \"Gravure terminée.\"\npump\n");
    EXPECT_EQ(Event(2), R"(pump x 101
log "Initialisation du graveur... "
Corvane7ProgressBar1 0
Label14 "Configuration du graveur"
pump
)");
    EXPECT_EQ(Event(3), R"(pump x 101
log "Calibration de la puissance du laser... "
Corvane7ProgressBar1 0
pump
)");
    EXPECT_EQ(Event(7), R"(pump x 101
log "Vérification des données."
log "         Veuillez patienter......."
pump
)");
}

TEST_F(WritingDisplayTest, TheComparisonShowsItsPercentageAndIsLoggedOnce)
{
    imapi::IDiscFormat2DataEventArgs event = WriteEvent(7, 0, 400, 1000);
    event.LastReadLba = 1000;
    EXPECT_EQ(Event(event), Event(7));
    event.LastReadLba = 1100;
    EXPECT_EQ(Event(event), R"(pump x 101
Label14 "Vérification des données...<CR LF>Progression :  25,00%  "
Corvane7ProgressBar1 25
pump
)");
}

TEST_F(WritingDisplayTest, AnUnknownPhaseIsLoggedWithItsNumberAndTheWriteGoesOn)
{
    EXPECT_EQ(Event(8), "pump x 101\nlog \"Action inconnue: 8\"\npump\n");
    EXPECT_EQ(Event(-3), "pump x 101\nlog \"Action inconnue: -3\"\npump\n");
}

TEST_F(WritingDisplayTest, TheWritingShowsItsPercentageAndNoTime)
{
    EXPECT_EQ(Event(WriteEvent(4, 1, 3)), R"(pump x 101
log "Gravure en cours..."
Label14 "Gravure en cours...<CR LF>Progression :  33,33%  "
Corvane7ProgressBar1 33
pump
pump
)");
}

TEST_F(WritingDisplayTest, TheWritingIsLoggedOnceForEachStretch)
{
    const std::string logged = "log \"Gravure en cours...\"";
    Event(WriteEvent(4, 0, 10));
    EXPECT_TRUE(transcript.Holds(logged));
    Event(WriteEvent(4, 5, 10));
    EXPECT_FALSE(transcript.Holds(logged));
    Event(7);
    Event(WriteEvent(4, 6, 10));
    EXPECT_TRUE(transcript.Holds(logged));
    for (const qint32 phase : {0, 1, 2, 3, 5, 6, 9}) {
        Event(phase);
        Event(WriteEvent(4, 7, 10));
        EXPECT_TRUE(transcript.Holds(logged)) << phase;
    }
}

TEST_F(WritingDisplayTest, TheFigureCountsFromWhereTheWriteStarted)
{
    EXPECT_NE(Event(WriteEvent(4, 500, 1000, 20000)).find("50,00%"), std::string::npos);
    EXPECT_TRUE(transcript.Holds("Corvane7ProgressBar1 50"));
}

TEST_F(WritingDisplayTest, TheBarsValueGoesToTheEvenNeighbourAndOverAHundredUnchanged)
{
    Event(WriteEvent(4, 125, 1000));
    EXPECT_TRUE(transcript.Holds("Corvane7ProgressBar1 12"));
    Event(WriteEvent(4, 1100, 1000));
    EXPECT_TRUE(transcript.Holds("Corvane7ProgressBar1 110"));
    Event(WriteEvent(4, -1, 1000));
    EXPECT_TRUE(transcript.Holds("Corvane7ProgressBar1 0"));
    EXPECT_NE(transcript.Text().find("-0,10%"), std::string::npos);
}

TEST_F(WritingDisplayTest, ASectorCountOf0IsDividedByBeforeTheBarIsGuarded)
{
    EXPECT_EQ(ErrorNumberOf([this] { Event(WriteEvent(4, 5, 0)); }), 11);
    EXPECT_EQ(transcript.Text(), "pump x 101\nlog \"Gravure en cours...\"\n");
    EXPECT_EQ(ErrorNumberOf([this] { Event(WriteEvent(4, 0, 0)); }), 6);
    EXPECT_EQ(transcript.Text(), "pump x 101\n");
}

TEST_F(WritingDisplayTest, ANegativeSectorCountLeavesTheBarAlone)
{
    EXPECT_EQ(Event(WriteEvent(4, 5, -10)), R"(pump x 101
log "Gravure en cours..."
Label14 "Gravure en cours...<CR LF>Progression :  -50,00%  "
pump
pump
)");
}

TEST_F(WritingDisplayTest, ABarValueBeyond16BitsIsAnOverflow)
{
    EXPECT_EQ(ErrorNumberOf([this] { Event(WriteEvent(4, 1'000'000, 1)); }), 6);
}

TEST_F(WritingDisplayTest, AStopAskedForInThePumpIsActedOnInTheSameEvent)
{
    transcript.AtNth("pump", 50, [this] { writing::RequestStop(screen, state); });

    EXPECT_EQ(Event(WriteEvent(4, 1, 3)), "pump x 50\n" + kStopDemanded + R"(pump x 51
Label14 "Annulation de la gravure par l'utilisateur"
log "Annulation de la gravure par l'utilisateur"
pump
dataWriter1.CancelWrite
)");
    EXPECT_TRUE(state.StopFlag);
}

TEST_F(WritingDisplayTest, TheCompanionsUndoSetsTheStopFlagAndCancels)
{
    companion.isStopAsked = true;

    EXPECT_EQ(Event(2), R"(pump x 101
Label14 "Annulation de la gravure par l'utilisateur"
log "Annulation de la gravure par l'utilisateur"
pump
dataWriter1.CancelWrite
)");
    EXPECT_TRUE(state.StopFlag);
}

TEST_F(WritingDisplayTest, AStopIsHeardDuringAStepThatTellsNothing)
{
    progress.HearStop(writer);
    EXPECT_EQ(transcript.Text(), "pump\n");

    transcript.Clear();
    companion.isStopAsked = true;
    progress.HearStop(writer);
    progress.HearStop(writer); // once is enough
    EXPECT_EQ(transcript.Text(), R"(pump
Label14 "Annulation de la gravure par l'utilisateur"
log "Annulation de la gravure par l'utilisateur"
pump
dataWriter1.CancelWrite
pump
)");
    EXPECT_TRUE(state.StopFlag);
}

TEST_F(WritingDisplayTest, AfterAStopLaterEventsOnlyPump)
{
    state.StopFlag = true;
    Event(4);
    EXPECT_EQ(Event(WriteEvent(4, 1, 3)), "pump x 101\n");
    EXPECT_EQ(Event(6), "pump x 101\n");
    state.StopFlag = false; // a later run
    EXPECT_EQ(Event(0), "pump x 101\n");
    state.StopFlag = true;
    EXPECT_EQ(Event(0), "pump x 101\n"); // and can't be stopped
}

TEST_F(WritingDisplayTest, AFailedCancelLeavesTheHandler)
{
    transcript.At("dataWriter1.CancelWrite",
        [] { throw drive::PublishedError(drive::hresult::kWriteNotInProgress); });
    state.StopFlag = true;

    EXPECT_EQ(ErrorNumberOf([this] { Event(0); }), -1062599679);
}

} // namespace velmora::test
