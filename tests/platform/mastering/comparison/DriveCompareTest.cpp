// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the drive does while a disc is compared: it gets ready, gives nothing, vanishes.
#include "drive/PublishedCodes.h"
#include "tests/platform/mastering/CompareBench.h"
#include "tests/platform/mastering/ErrorNumbers.h"

namespace velmora::test {

using drive::DiscState;
using imapi::ComparisonEnd;
using imapi::DiscComparison;
using imapi::HurtPlace;
using DriveCompareTest = CompareBench;

TEST_F(DriveCompareTest, ADriveThatGetsReadyIsWaitedFor)
{
    drive->Fail("Examine", {0, drive::hresult::kBecomingReady, drive::hresult::kMediaBusy});
    EXPECT_EQ(Compare(1).end, ComparisonEnd::Same);
    EXPECT_EQ(clock.Timer(), 2);
}

TEST_F(DriveCompareTest, ADriveThatNeverGetsReadyIsNoFailure)
{
    drive->Fail("Examine", {0});
    for (int i = 0; i < 61; ++i) {
        drive->Fail("Examine", {drive::hresult::kBecomingReady});
    }
    const DiscComparison& comparison = Compare(1);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Impossible);
    EXPECT_EQ(comparison.cause, u"Le lecteur n'est pas encore prêt : attendez un instant."_s);
    EXPECT_EQ(clock.Timer(), 60);
}

TEST_F(DriveCompareTest, ADiscThatIsGoneWasNotCompared)
{
    const DiscComparison& comparison = Compare(3 * kPiece, [this] { drive->disc = {}; });
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Impossible);
    EXPECT_EQ(comparison.cause, u"Aucun média dans le lecteur : insérez un disque."_s);
    EXPECT_EQ(comparison.sameSectors, 0);
    EXPECT_EQ(drive->Count("CloseTray"), 0) << "a hand may be in it";
}

TEST_F(DriveCompareTest, AnotherDiscIsNoHurtDisc)
{
    const DiscComparison& comparison
        = Compare(3 * kPiece, [this] { std::ranges::fill(drive->written, std::byte {0x5A}); });
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Impossible);
    EXPECT_EQ(comparison.cause, u"Le disque du lecteur n'est pas celui qui vient d'être gravé."_s);
    EXPECT_TRUE(comparison.places.empty());
    EXPECT_EQ(comparison.hurtFileCount, 0U);
    EXPECT_EQ(comparison.sameSectors, 0);
}

TEST_F(DriveCompareTest, ADiscThatIsExchangedHalfWayIsNoHurtDisc)
{
    drive->Fail("Read 3048", {drive::hresult::kImportReadFailure});
    const DiscComparison& comparison = Compare(6 * kPiece, [this] {
        drive->onRead = [this](qint64) { drive->disc = DiscOf(27, DiscState::Closed); };
    });
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Impossible);
    EXPECT_EQ(comparison.cause, u"Le disque du lecteur a été échangé contre un autre."_s);
}

TEST_F(DriveCompareTest, ADriveThatGoesHalfWayIsNoHurtDisc)
{
    drive->Fail("Examine", {0, 0, drive::hresult::kDeviceGone});
    drive->Fail("Read 3048", {drive::hresult::kImportReadFailure}); // all that a read can say
    const DiscComparison& comparison = Compare(6 * kPiece);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Impossible);
    EXPECT_EQ(comparison.cause, u"Le graveur n'est plus là : vérifiez son branchement."_s);
    EXPECT_EQ(comparison.sameSectors, 2048);
}

TEST_F(DriveCompareTest, ADriveThatGoesOnceDamageIsFoundLeavesAWrittenHurtDisc)
{
    drive->Fail("Read 1000", {0, drive::hresult::kDeviceGone});
    const DiscComparison& comparison = Compare(2 * kPiece, [this] { Flip(3, 7); });
    EXPECT_EQ(number, drive::hresult::kVerificationFailed);
    EXPECT_EQ(comparison.end, ComparisonEnd::Hurt);
    EXPECT_EQ(comparison.places, (std::vector<HurtPlace> {{kFirst + 3, kFirst + 3, false}}));
}

TEST_F(DriveCompareTest, ADriveThatSomebodyElseHasIsNoHurtDisc)
{
    drive->Fail("Read 1000", {drive::hresult::kRecorderLocked});
    const DiscComparison& comparison = Compare(1);
    EXPECT_EQ(comparison.end, ComparisonEnd::Impossible);
    EXPECT_TRUE(comparison.cause.contains(u"verrouillé"_s));
}

TEST_F(DriveCompareTest, ADriveThatGetsReadyWhileItIsReadIsAskedOnceMore)
{
    drive->Fail("Read 1256", {drive::hresult::kBecomingReady});
    EXPECT_EQ(Compare(2 * kPiece).end, ComparisonEnd::Same);
    drive->Fail("Read 1256", {drive::hresult::kBecomingReady, drive::hresult::kBecomingReady});
    EXPECT_EQ(Compare(2 * kPiece).end, ComparisonEnd::Impossible) << "whatever it says of itself";
    EXPECT_EQ(number, 0);
}

TEST_F(DriveCompareTest, ADiscThatGivesNothingIsTakenAnew)
{
    drive->Fail("Read 1000", {drive::hresult::kImportReadFailure});
    EXPECT_EQ(Compare(1).end, ComparisonEnd::Same);
    EXPECT_EQ(drive->Calls(),
        "[Lock(force)][Examine][Write][Examine][Read 1000][Examine][Eject][CloseTray][Examine]"
        "[Read 1000][Unlock]");
}

TEST_F(DriveCompareTest, ADiscWhoseFirstSectorCannotBeReadThenEitherIsHurt)
{
    drive->unreadable = {kFirst};
    EXPECT_EQ(Compare(2).places, (std::vector<HurtPlace> {{kFirst, kFirst, true}}));
}

TEST_F(DriveCompareTest, ADiscThatGivesNothingAtAllWasNotCompared)
{
    for (qint64 sector = 0; sector < 700; ++sector) {
        drive->unreadable.insert(kFirst + sector);
    }
    const DiscComparison& comparison = Compare(700);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Impossible);
    EXPECT_EQ(
        comparison.cause, u"Lecture du disque impossible : nettoyez-le ou changez de disque."_s);
    EXPECT_EQ(comparison.sectors, 700);
    EXPECT_EQ(comparison.sameSectors, 0);
    EXPECT_TRUE(comparison.places.empty());
    EXPECT_EQ(drive->Count("Eject"), 1);
}

TEST_F(DriveCompareTest, ATrayThatOnlyAHandClosesIsNotOpened)
{
    drive->facts.canLoadMedia = false;
    writer->SetRecorder(Bound());
    drive->unreadable = {kFirst};
    const DiscComparison& comparison = Compare(1);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Impossible);
    EXPECT_TRUE(comparison.cause.startsWith(u"Lecture du disque impossible"_s));
    EXPECT_EQ(drive->Count("Eject"), 0);
}

TEST_F(DriveCompareTest, ATrayThatStaysOutIsNoHurtDisc)
{
    drive->Fail("Read 1000", {drive::hresult::kImportReadFailure});
    drive->Fail("CloseTray", {drive::hresult::kFail});
    EXPECT_EQ(Compare(1).end, ComparisonEnd::Impossible);
    EXPECT_EQ(number, 0);
}

} // namespace velmora::test
