// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/QuietScreen.h"

#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

namespace {

class QuietScreenTest : public testing::Test {
protected:
    TranscriptScreen out;
    QuietScreen screen {out};
};

} // namespace

TEST_F(QuietScreenTest, WhatGoesWellIsLeftOut)
{
    screen.Result("Image : a.iso");
    screen.Notice("Lecture du dossier…");
    screen.Progress("Gravure : 3 %");
    screen.Tell(PhaseProgress {JobPhase::Writing});
    screen.Tell(JobReport {[]() -> QJsonObject {
        ADD_FAILURE() << "nobody takes the report";
        return {};
    }});
    EXPECT_EQ(out.Text(), "");
}

TEST_F(QuietScreenTest, QuestionsAndErrorsAreShown)
{
    screen.Question("Voulez-vous poursuivre ?");
    EXPECT_EQ(Fail(screen, "le disque est illisible."), ExitCode::Failed);
    EXPECT_EQ(FailWithoutDisc(screen), ExitCode::NoDisc);
    EXPECT_EQ(out.Text(),
        "! Voulez-vous poursuivre ?\n"
        "! Erreur : le disque est illisible.\n"
        "! Erreur : Le lecteur est vide : mettez-y un disque, puis recommencez.\n");
}

TEST_F(QuietScreenTest, OfTheRemarksThoseAreShownThatSayThatSomethingIsWrong)
{
    screen.Tell(JobRemark {.kind = RemarkKind::ChangedName, .text = "a -> b"});
    screen.Tell(JobRemark {.kind = RemarkKind::LinkLeadingOut, .text = "c -> d"});
    screen.Tell(JobRemark {.kind = RemarkKind::LeftOut, .text = "« tube » : Absent."});
    screen.Tell(JobRemark {.kind = RemarkKind::AfterWrite, .text = "Non éjecté."});
    screen.Tell(JobRemark {.kind = RemarkKind::OtherSums, .text = "Sans sommes."});
    Warn(screen, RemarkKind::Stopped, "Arrêté à votre demande.");
    EXPECT_EQ(out.Text(),
        "! « tube » : Absent.\n! Non éjecté.\n! Sans sommes.\n! Arrêté à votre demande.\n");
}

} // namespace velmora::terminal
