// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/ReadBack.h"

#include "mastering/DriveMastering.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeDrive.h"
#include "tests/terminal/ScriptedInput.h"
#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;
using drive::DiscState;

namespace {

class ReadBackTest : public testing::Test {
protected:
    void SetUp() override
    {
        const std::vector<std::byte> zeros(2048);
        recording.drive = drive;
        recording.sectors = 1000;
        recording.isWritten = true;
        for (int sector = 0; sector < 1000; ++sector) {
            recording.digests.Add(zeros); // as the drive gives them
        }
        drive->disc = test::DiscOf(27, DiscState::Appendable);
    }

    ExitCode Compare(Assent assent = Assent::Given)
    {
        const DiscContext context {.screen = screen,
            .input = input,
            .mastering = *mastering,
            .witness = witness,
            .pump = pump,
            .clock = clock,
            .stopRequested = [this] { return isStopped; },
            .insistOnOrderlyEnd = [](bool) {}};
        return ReadBack(context, assent).Run(recording);
    }

    /// The tray stays open until a person has closed it.
    void LeaveTrayOpen()
    {
        drive->disc = {};
        input.onRead = [this] { drive->disc = test::DiscOf(27, DiscState::Appendable); };
    }

    std::shared_ptr<test::FakeDrive> drive = std::make_shared<test::FakeDrive>(u"a"_s);
    test::FakePump pump;
    test::FakeClock clock {pump};
    std::unique_ptr<imapi::Mastering> mastering = mastering::MasteringOf({}, clock);
    WriteWitness witness;
    ScriptedInput input;
    TranscriptScreen screen;
    WitnessedRecording recording;
    bool isStopped = false;
};

} // namespace

TEST_F(ReadBackTest, ADiscIsPulledInReadAndPutOutAgain)
{
    EXPECT_EQ(Compare(), ExitCode::Done);
    EXPECT_EQ(drive->Calls(), "[CloseTray][Examine][Lock(force)][Read 0][Unlock][Eject]");
    EXPECT_EQ(screen.Text(),
        "! Comparaison du disque avec ce qui a été gravé…\n"
        "= Comparaison : 2 048,0 Ko relus sur le disque, identiques à ce qui a été gravé\n"
        "= SHA-256 : "
            + recording.digests.Digest().toHex().toStdString() + "\n");
}

TEST_F(ReadBackTest, ADriveThatIsGettingReadyIsWaitedFor)
{
    drive->Fail("Examine", {drive::hresult::kBecomingReady, drive::hresult::kMediaBusy});
    EXPECT_EQ(Compare(), ExitCode::Done);
    EXPECT_EQ(clock.Timer(), 2);
}

TEST_F(ReadBackTest, ADriveThatNeverGetsReadyComparesNothing)
{
    for (int i = 0; i < 61; ++i) {
        drive->Fail("Examine", {drive::hresult::kBecomingReady});
    }
    EXPECT_EQ(Compare(), ExitCode::Incomplete);
    EXPECT_EQ(clock.Timer(), 60);
    EXPECT_TRUE(screen.Shows("! Attention : rien n'a été comparé. Le lecteur n'est pas encore prêt "
                             ": attendez un instant."));
    EXPECT_FALSE(screen.Shows("identiques"));
}

TEST_F(ReadBackTest, APersonIsAskedForTheDisc)
{
    LeaveTrayOpen();
    drive->Fail("CloseTray", {drive::hresult::kFail});
    input.lines = {""};
    EXPECT_EQ(Compare(Assent::Asked), ExitCode::Done);
    EXPECT_EQ(drive->Calls(),
        "[CloseTray][Examine][CloseTray][Examine][Lock(force)][Read 0][Unlock][Eject]");
}

TEST_F(ReadBackTest, WhereNobodyIsAskedAnEmptyDriveComparesNothing)
{
    LeaveTrayOpen();
    EXPECT_EQ(Compare(Assent::Given), ExitCode::Incomplete);
    EXPECT_EQ(Compare(Assent::Asked), ExitCode::Incomplete); // the input is at its end
    EXPECT_FALSE(screen.Shows("identiques"));
}

TEST_F(ReadBackTest, AnotherDiscIsFoundOut)
{
    drive->sectors[0] = std::vector(2048, std::byte {1});
    EXPECT_EQ(Compare(), ExitCode::Failed);
    EXPECT_TRUE(screen.Shows("! Erreur : le disque ne contient pas ce qui a été gravé ; première "
                             "différence entre les secteurs 0 et 999"));
    EXPECT_FALSE(screen.Shows("= "));
}

TEST_F(ReadBackTest, ADiscThatCannotBeReadIsNotToBeTrusted)
{
    drive->Fail("Read 0", {drive::hresult::kImportReadFailure});
    EXPECT_EQ(Compare(), ExitCode::Failed);
    EXPECT_TRUE(screen.Shows("! Erreur : le disque est illisible entre les secteurs 0 et 999 "
                             "(Lecture du disque impossible : nettoyez-le ou changez de disque.)"));
}

TEST_F(ReadBackTest, AStopSaysHowMuchWasCompared)
{
    isStopped = true;
    EXPECT_EQ(Compare(), ExitCode::Stopped);
    EXPECT_TRUE(
        screen.Shows("! Comparaison arrêtée à votre demande, après 0 octet sans différence sur"));
    EXPECT_EQ(drive->Calls(), "[CloseTray][Examine][Lock(force)][Unlock][Eject]");
}

TEST_F(ReadBackTest, ADriveThatSomebodyElseHasComparesNothing)
{
    drive->Fail("Lock(force)", {drive::hresult::kRecorderLocked});
    EXPECT_EQ(Compare(), ExitCode::Incomplete);
    EXPECT_TRUE(screen.Shows("! Attention : rien n'a été comparé."));
}

} // namespace velmora::terminal
