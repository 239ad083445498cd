// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/OutputForm.h"

#include "terminal/arguments/CommandLine.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

namespace {

OutputForm FormOf(const std::vector<std::string>& arguments)
{
    return ChooseOutput(arguments).form;
}

/// The message about a mistake; empty when there is none.
std::string MistakeIn(std::vector<std::string> arguments)
{
    const auto command = ParseCommandLine(std::move(arguments), nullptr, {});
    const auto* reply = std::get_if<Reply>(&command);
    return reply ? reply->mistake : "";
}

} // namespace

TEST(OutputFormTest, EachJobIsToldInTheFormThatIsAskedFor)
{
    for (const char* job : {"image", "burn", "burn-iso", "erase", "check"}) {
        EXPECT_EQ(FormOf({job}), OutputForm::Lines) << job;
        EXPECT_EQ(FormOf({job, "-q"}), OutputForm::Quiet) << job;
        EXPECT_EQ(FormOf({job, "--quiet"}), OutputForm::Quiet) << job;
        EXPECT_EQ(FormOf({job, "x", "--json"}), OutputForm::Json) << job;
        EXPECT_EQ(ChooseOutput({job, "--json"}).command, job);
    }
}

TEST(OutputFormTest, TheAnswersOfOtherCommandsHaveNoSuchForm)
{
    EXPECT_EQ(FormOf({}), OutputForm::Lines);
    EXPECT_EQ(FormOf({"recorders", "--json"}), OutputForm::Lines);
    EXPECT_EQ(FormOf({"--json", "burn"}), OutputForm::Lines);
}

TEST(OutputFormTest, HelpIsForAPerson)
{
    EXPECT_EQ(FormOf({"burn", "--json", "--help"}), OutputForm::Lines);
    EXPECT_EQ(FormOf({"burn", "-q", "-h"}), OutputForm::Lines);
}

TEST(OutputFormTest, AMistakeIsToldInTheFormThatIsAskedFor)
{
    EXPECT_EQ(FormOf({"burn", "--json", "--bogus"}), OutputForm::Json);
    EXPECT_EQ(FormOf({"burn", "--json", "--quiet"}), OutputForm::Json);
}

TEST(OutputFormTest, AProgramIsAskedNoQuestions)
{
    const std::string refused = "avec --json aucune question ne peut être posée : ajoutez --yes.";
    EXPECT_EQ(MistakeIn({"burn", "Photos", "--json"}), refused);
    EXPECT_EQ(MistakeIn({"burn-iso", "a.iso", "--json"}), refused);
    EXPECT_EQ(MistakeIn({"erase", "--json"}), refused);
    EXPECT_EQ(MistakeIn({"erase", "--json", "--yes"}), "");
    EXPECT_EQ(MistakeIn({"image", "Photos", "-o", "a.iso", "--json"}), "");
    EXPECT_EQ(MistakeIn({"check", "--json"}), "");
    EXPECT_EQ(MistakeIn({"erase", "--quiet"}), "") << "a person can be asked";
}

TEST(OutputFormTest, QuietAndJsonDontGoTogether)
{
    EXPECT_EQ(MistakeIn({"check", "-q", "--json"}),
        "--quiet et --json ne vont pas ensemble : choisissez.");
}

TEST(OutputFormTest, StandardOutputIsForTheImageOrForTheObjects)
{
    EXPECT_EQ(MistakeIn({"image", "Photos", "-o", "-", "--json"}),
        "avec --json la sortie standard n'est pas libre pour une image : donnez un fichier à -o.");
    EXPECT_EQ(MistakeIn({"image", "Photos", "-o", "-", "--quiet"}), "");
}

} // namespace velmora::terminal
