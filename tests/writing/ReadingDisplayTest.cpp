// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ReadingDisplay.h"

#include "tests/support/ErrorNumberOf.h"
#include "tests/writing/ImageStageBench.h"

namespace velmora::test {

class ReadingDisplayTest : public testing::Test {
protected:
    /// The transcript of one event.
    std::string Event(const QString& file, qint32 copied, qint32 total)
    {
        transcript.Clear();
        display.FSI1_Update(file, copied, total);
        return transcript.Text();
    }

    Transcript transcript;
    TranscriptScreen screen {transcript};
    shell::ProgramState state;
    writing::ReadingDisplay display {screen, state};
};

TEST_F(ReadingDisplayTest, AShortFileShowsOnlyItsName)
{
    EXPECT_EQ(Event(u"\\home\\u\\a.txt"_s, 0, 1), R"(FileBar hidden
Label14 "Lecture des fichiers : /home/u/a.txt"
FileBar 0
pump
)");
}

TEST_F(ReadingDisplayTest, AFileThatLastsGetsItsBarAndPoints)
{
    Event(u"A\\b.txt"_s, 0, 1000);

    EXPECT_EQ(Event(u"A\\b.txt"_s, 512, 1000), R"(FileBar shown
Label14 "Lecture des fichiers : A\b.txt."
FileBar 51
pump
)");
    EXPECT_EQ(Event(u"A\\b.txt"_s, 1000, 1000), R"(FileBar shown
Label14 "Lecture des fichiers : A\b.txt.."
FileBar 100
pump
)");
}

TEST_F(ReadingDisplayTest, TheNextFileTakesThePointsAway)
{
    Event(u"a"_s, 0, 2);
    Event(u"a"_s, 2, 2);

    EXPECT_EQ(Event(u"b"_s, 0, 2), R"(FileBar hidden
Label14 "Lecture des fichiers : b"
FileBar 0
pump
)");
}

TEST_F(ReadingDisplayTest, TwentyPointsAreFollowedByOne)
{
    for (int event = 0; event <= 19; ++event) {
        Event(u"a"_s, 0, 0);
    }

    EXPECT_EQ(Event(u"a"_s, 0, 0), R"(FileBar shown
Label14 "Lecture des fichiers : a...................."
pump
)");
    EXPECT_EQ(Event(u"a"_s, 0, 0), R"(FileBar shown
Label14 "Lecture des fichiers : a."
pump
)");
}

TEST_F(ReadingDisplayTest, AFileWithoutSectorsLeavesTheBarsValue)
{
    EXPECT_EQ(Event(u"empty"_s, 0, 0), R"(FileBar hidden
Label14 "Lecture des fichiers : empty"
pump
)");
}

TEST_F(ReadingDisplayTest, TheVeryFirstEventOfAnEmptyPathCountsAsARepetition)
{
    EXPECT_EQ(Event(u""_s, 0, 0), R"(FileBar shown
Label14 "Lecture des fichiers : ."
pump
)");
}

TEST_F(ReadingDisplayTest, AfterAStopTheCaptionStays)
{
    state.StopFlag = true;

    EXPECT_EQ(Event(u"a"_s, 1, 2), R"(FileBar hidden
FileBar 50
pump
)");
}

TEST_F(ReadingDisplayTest, AStopInThePumpIsSeenByTheNextEvent)
{
    transcript.At("pump", [this] { state.StopFlag = true; });

    EXPECT_EQ(Event(u"a"_s, 0, 0), R"(FileBar hidden
Label14 "Lecture des fichiers : a"
pump
)");
    EXPECT_EQ(Event(u"b"_s, 0, 0), R"(FileBar hidden
pump
)");
}

TEST_F(ReadingDisplayTest, AValueThatTheBarCannotTakeIsAnOverflow)
{
    EXPECT_EQ(ErrorNumberOf([this] { display.FSI1_Update(u"a"_s, 1'000'000, 1); }), 6);
}

using ImageStageTest = ImageStageBench;

TEST_F(ImageStageTest, LastFileAndPointsSurviveFromRunToRun)
{
    Configure();
    script.update(u"a"_s, 0, 0);
    script.update(u"a"_s, 0, 0);
    stage.Release();
    Configure();

    script.update(u"a"_s, 0, 0);

    EXPECT_EQ(transcript.Text(), R"(FileBar shown
Label14 "Lecture des fichiers : a.."
pump
)");
}

} // namespace velmora::test
