// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/Closing.h"

#include "tests/writing/Transcript.h"
#include "wizard/rules/ClosingScreen.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

/// A window that writes down what its end does.
class TranscriptClosing final : public ClosingScreen {
public:
    explicit TranscriptClosing(test::Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void ShowCloseNotice(bool isVisible) override
    {
        transcript_.Tell(isVisible ? u"closeNotice shown"_s : u"closeNotice hidden"_s);
    }
    void CloseWindow() override { transcript_.Tell(u"closed"_s); }
    void RequestStop() override { transcript_.Tell(u"stop requested"_s); }
    void DeclineQuestion() override { transcript_.Tell(u"question declined"_s); }

private:
    test::Transcript& transcript_;
};

} // namespace

class ClosingTest : public testing::Test {
protected:
    /// The user closes the window during a task.
    void CloseTooSoon()
    {
        EXPECT_FALSE(closing.MayClose(true));
        EXPECT_EQ(transcript.Text(), "closeNotice shown\n");
        transcript.Clear();
    }

    test::Transcript transcript;
    TranscriptClosing screen {transcript};
    Closing closing {screen};
};

TEST_F(ClosingTest, WithoutATaskTheWindowGoesAtOnce)
{
    EXPECT_TRUE(closing.MayClose(false));
    EXPECT_EQ(transcript.Text(), "closeNotice hidden\n");
}

TEST_F(ClosingTest, ATaskHoldsTheWindowUntilItsEnd)
{
    CloseTooSoon();
    closing.OnTaskEnd(false);
    EXPECT_EQ(transcript.Text(), "closed\n");
}

TEST_F(ClosingTest, TheEndOfATaskClosesNothingThatNobodyClosed)
{
    closing.OnTaskEnd(false);
    EXPECT_EQ(transcript.Text(), "");
}

TEST_F(ClosingTest, NewsKeepTheWindowAndTheWishIsForgotten)
{
    CloseTooSoon();
    closing.OnTaskEnd(true);
    EXPECT_EQ(transcript.Text(), "closeNotice hidden\n");
    transcript.Clear();

    closing.OnTaskEnd(false);
    EXPECT_EQ(transcript.Text(), "") << "of a later task";
    EXPECT_TRUE(closing.MayClose(false)) << "the second wish is fulfilled";
}

TEST_F(ClosingTest, TheEndOfTheProgramStopsTheTaskFirst)
{
    EXPECT_FALSE(closing.IsEnding());
    closing.End(true);
    EXPECT_EQ(transcript.Text(), "stop requested\nquestion declined\nclosed\n");
    EXPECT_TRUE(closing.IsEnding());
}

TEST_F(ClosingTest, TheEndOfTheProgramWithoutATaskStopsNothing)
{
    closing.End(false);
    EXPECT_EQ(transcript.Text(), "question declined\nclosed\n");
}

TEST_F(ClosingTest, AtTheEndOfTheProgramNewsKeepNoWindow)
{
    closing.End(true);
    transcript.Clear();
    CloseTooSoon();
    closing.OnTaskEnd(true);
    EXPECT_EQ(transcript.Text(), "closed\n");
}

} // namespace velmora::wizard
