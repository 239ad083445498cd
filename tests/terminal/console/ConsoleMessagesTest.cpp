// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/ConsoleMessages.h"

#include "terminal/console/QuietScreen.h"
#include "tests/terminal/ScriptedInput.h"
#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

#include <utility>

namespace velmora::terminal {

using namespace Qt::StringLiterals;
using shell::MessageAnswer;
namespace style = shell::message_style;

namespace {

const QString kTitle = u"Média non compatible ou invalide"_s; // of no consequence
constexpr qint32 kPrompt = style::kOkCancel + style::kInformation;
constexpr qint32 kTask = style::kOk + style::kInformation;
constexpr qint32 kAlarm = style::kOk + style::kStop + style::kSystemModal;
constexpr qint32 kQuestion = style::kYesNo + style::kQuestion;

class ConsoleMessagesTest : public testing::Test {
protected:
    MessageAnswer Ask(qint32 style)
    {
        return ConsoleMessages(screen, input, Assent::Asked).MsgBox(u"Texte"_s, style, kTitle);
    }
    MessageAnswer Give(qint32 style)
    {
        return ConsoleMessages(screen, input, Assent::Given).MsgBox(u"Texte"_s, style, kTitle);
    }

    TranscriptScreen screen;
    ScriptedInput input;
    std::string shownBefore;
};

} // namespace

TEST_F(ConsoleMessagesTest, AQuestionIsAgreedToOnlyInSoManyWords)
{
    for (const char* line : {"o", "O", "oui"}) {
        input.lines = {line};
        EXPECT_EQ(Ask(kQuestion), MessageAnswer::Yes) << line;
    }
    for (const char* line : {"", "n", "non", "y", " "}) {
        input.lines = {line};
        EXPECT_EQ(Ask(kQuestion), MessageAnswer::No) << line;
    }
    EXPECT_EQ(Ask(kQuestion), MessageAnswer::No); // the input is at its end
}

TEST_F(ConsoleMessagesTest, AnEmptyLineConfirmsAPrompt)
{
    input.lines = {"", "a", "abandon"};
    EXPECT_EQ(Ask(kPrompt), MessageAnswer::Ok);
    EXPECT_EQ(Ask(kPrompt), MessageAnswer::Cancel);
    EXPECT_EQ(Ask(kPrompt), MessageAnswer::Cancel);
    EXPECT_EQ(Ask(kPrompt), MessageAnswer::Cancel); // the input is at its end
}

TEST_F(ConsoleMessagesTest, ATaskIsWaitedForAndATellingIsNot)
{
    input.lines = {"", "left"};
    EXPECT_EQ(Ask(kTask), MessageAnswer::Ok);
    EXPECT_EQ(input.lines.size(), 1U);
    EXPECT_EQ(Ask(kAlarm), MessageAnswer::Ok);
    EXPECT_EQ(input.lines.size(), 1U);
}

TEST_F(ConsoleMessagesTest, AssentGivenBeforeAnswersForThePerson)
{
    input.lines = {"n", "a"};
    EXPECT_EQ(Give(kQuestion), MessageAnswer::Yes);
    EXPECT_EQ(Give(kPrompt), MessageAnswer::Ok);
    EXPECT_EQ(Give(kTask), MessageAnswer::Ok);
    EXPECT_EQ(input.lines.size(), 2U);
    EXPECT_TRUE(screen.Shows("! → Oui (--yes)"));
}

TEST_F(ConsoleMessagesTest, NobodyChangesTheDiscWhereNobodyIsAsked)
{
    EXPECT_FALSE(ConsoleMessages(screen, input, Assent::Given).AskForAnotherDisc(u"Texte"_s));
    EXPECT_EQ(screen.Text(), "! Texte\n! → Non (--yes)\n");
}

TEST_F(ConsoleMessagesTest, AnotherDiscIsAskedForLikeAnythingElse)
{
    input.lines = {"", "o"};
    ConsoleMessages messages(screen, input, Assent::Asked);
    EXPECT_FALSE(messages.AskForAnotherDisc(u"Refus\r\n\r\nQuestion"_s));
    EXPECT_EQ(screen.Text(), "! Refus\n! Question\n! [o puis Entrée pour oui, Entrée pour non]\n");
    EXPECT_TRUE(messages.AskForAnotherDisc(u"Refus\r\n\r\nQuestion"_s));
}

TEST_F(ConsoleMessagesTest, ATextOfSeveralLinesIsShownWithoutItsEmptyOnes)
{
    ConsoleMessages(screen, input, Assent::Asked)
        .MsgBox(u"Un\r\n\r\nDeux\x1B"_s, kAlarm, u"Velmora"_s);
    EXPECT_EQ(screen.Text(), "! Un\n! Deux␛\n");
}

TEST_F(ConsoleMessagesTest, OnlyWhatAPersonHasToAnswerIsAQuestion)
{
    QuietScreen quiet(screen);
    const auto lastNewLine = [&] {
        return std::exchange(shownBefore, screen.Text()) == screen.Text() ? std::string()
                                                                          : screen.Lines().back();
    };
    const auto show = [&](Assent assent, qint32 style) {
        ConsoleMessages(quiet, input, assent).MsgBox(u"Texte\nSuite"_s, style, kTitle);
        return lastNewLine();
    };
    EXPECT_EQ(show(Assent::Asked, kQuestion), "! [o puis Entrée pour oui, Entrée pour non]");
    EXPECT_TRUE(screen.Shows("! Texte"));
    EXPECT_EQ(show(Assent::Given, kQuestion), "");
    EXPECT_EQ(show(Assent::Given, kTask), "");
    ConsoleMessages(quiet, input, Assent::Given).AskForAnotherDisc(u"Texte\nSuite"_s);
    EXPECT_EQ(lastNewLine(), "! Texte") << "the disc was refused";
    EXPECT_EQ(show(Assent::Given, kAlarm), "! Texte");
}

} // namespace velmora::terminal
