// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/EraseJob.h"

#include "terminal/console/JsonScreen.h"
#include "terminal/disc/EraseConsole.h"
#include "tests/terminal/disc/DiscJobBench.h"

namespace velmora::terminal {

using namespace Qt::StringLiterals;

class EraseJobTest : public DiscJobBench {
protected:
    EraseJobTest()
    {
        drive->disc = test::DiscOf(10, drive::DiscState::Closed);
        drive->disc.erasable = true;
    }

    ExitCode Erase(const DiscContext& context)
    {
        return RunErase({.terms = {.assent = Assent::Given}}, context);
    }
    ExitCode Erase() { return Erase(Context()); }

    void StopDuringTheErase()
    {
        drive->eraseReports = {{1, 40}};
        pump.onPump = [this] { isStopped = drive->Count("Erase") > 0; };
    }
};

TEST_F(EraseJobTest, ADiscIsErased)
{
    EXPECT_EQ(Erase(), ExitCode::Done);
    EXPECT_EQ(screen.Lines().back(), "= Disque : effacé");
}

TEST_F(EraseJobTest, TheCommandLineTellsHowToErase)
{
    const DiscContext context = Context();
    for (const bool erasesAll : {true, false}) {
        EraseConsole console(context, Assent::Asked, erasesAll, 0);
        EXPECT_EQ(console.AskForFullErase(), erasesAll);
        EXPECT_EQ(
            screen.Lines().back(), erasesAll ? "! Effacement complet." : "! Effacement rapide.");
    }
}

TEST_F(EraseJobTest, NoOtherQuestionIsTakenForTheOneThatTheCommandLineAnswers)
{
    using namespace shell::message_style;
    const DiscContext context = Context();
    EraseConsole console(context, Assent::Given, false, 0);
    EXPECT_EQ(console.MsgBox(u"Question"_s, kYesNo + kQuestion, {}), shell::MessageAnswer::Yes);
    EXPECT_EQ(screen.Text(), "! Question\n! → Oui (--yes)\n");
}

TEST_F(EraseJobTest, WhatFailsBeforeTheDriveBeginsLeavesTheDisc)
{
    drive->disc.erasable = false;
    EXPECT_EQ(Erase(), ExitCode::Failed);
    EXPECT_TRUE(screen.Lines().back().starts_with("! Erreur : rien n'a été effacé. "));
}

TEST_F(EraseJobTest, AnEraseThatFailsIsNoSuccess)
{
    drive->Fail("Erase", {drive::hresult::kEraseRefused});
    EXPECT_EQ(Erase(), ExitCode::Failed);
    EXPECT_TRUE(screen.Lines().back().starts_with("! Erreur : l'effacement a échoué. "));
    drive->erasesNothing = true;
    EXPECT_EQ(Erase(), ExitCode::Failed);
    EXPECT_TRUE(screen.Lines().back().starts_with("! Erreur : l'effacement a échoué. "));
}

TEST_F(EraseJobTest, AStopBeforeTheDriveBeginsErasesNothing)
{
    isStopped = true;
    EXPECT_EQ(Erase(), ExitCode::Stopped);
    EXPECT_EQ(screen.Lines().back(), "! Arrêté à votre demande : rien n'a été effacé.");
    EXPECT_EQ(drive->Count("Erase"), 0);
}

TEST_F(EraseJobTest, AStopIsOneInTheReportToo)
{
    StopDuringTheErase();
    JsonScreen json(screen, "erase", [] { return SteadyTime {}; });
    const ExitCode code = Erase(ContextOn(json));
    EXPECT_EQ(code, ExitCode::Stopped);
    json.End(code);
    EXPECT_TRUE(screen.Shows("\"ending\":\"stopped\",\"eraseExtent\":\"untouched\""))
        << screen.Text();
    EXPECT_TRUE(screen.Shows("\"ending\":\"stopped\",\"exitCode\":130"));
}

TEST_F(EraseJobTest, AStopBehindAFailureIsNoStop)
{
    drive->Fail("Erase", {drive::hresult::kEraseRefused});
    drive->onCall = [this] { isStopped = drive->Count("Erase") > 0; };
    EXPECT_EQ(Erase(), ExitCode::Failed);
    EXPECT_TRUE(isStopped);
}

} // namespace velmora::terminal
