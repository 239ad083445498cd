// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/CopySeries.h"

#include "terminal/disc/BurnJob.h"
#include "terminal/disc/IsoBurnJob.h"
#include "tests/terminal/MediumOfOption.h"
#include "tests/terminal/disc/DiscJobBench.h"

#include <algorithm>
#include <utility>

namespace velmora::terminal {

using drive::DiscState;

/// A drive that keeps what it wrote, and a user who changes the discs.
class CopySeriesTest : public DiscJobBench {
protected:
    CopySeriesTest()
    {
        folder.File("photos/sea.jpg", std::string(300'000, 's'));
        mastering = mastering::MasteringOf(Witnessed({source}, witness),
            clock,
            {.comparesAfterWrite = [] { return false; },
                .keepRecord =
                    [this](const records::BurnRecord& record) {
                        witness.HearDigest(record.sha256);
                        return std::nullopt;
                    },
                .imageTimes = {.made = mastering::StampOf(clock.Now())}});
        drive->onCall = [this] { FollowDisc(); };
    }

    /// A written disc is closed; when an opened tray is reloaded it holds another disc.
    void FollowDisc()
    {
        if (drive->Count("Write") > writes) {
            ++writes;
            drive->disc = test::DiscOf(27, DiscState::Closed);
            if (whileWriting) whileWriting();
        }
        if (drive->Count("Eject") > ejections) {
            ++ejections;
            if (reloads) InsertBlankDisc();
        }
    }

    void InsertBlankDisc() { drive->disc = test::DiscOf(27, DiscState::Blank); }

    /// Plans how often the user presses Enter, with a blank disc in the tray from then on.
    void ChangesDiscs(int times)
    {
        input.lines.assign(static_cast<std::size_t>(times), "");
        input.onRead = [this] { InsertBlankDisc(); };
    }

    ExitCode Burn(std::uint32_t copies, Assent assent = Assent::Asked, const char* medium = nullptr)
    {
        const DiscContext context = Context();
        return BurnJob(
            {.folder = text::NativePath(folder.Path("photos")),
                .content = {.medium = medium ? MediumOfOption(medium) : nullptr},
                .terms = {.assent = assent, .comparesAfterwards = false, .copies = copies}},
            context)
            .Run();
    }

    std::ptrdiff_t Lines(const std::string& line) const
    {
        return std::ranges::count(screen.Lines(), line);
    }

    int writes = 0;
    int ejections = 0;
    bool reloads = false;
    std::function<void()> whileWriting;
};

TEST_F(CopySeriesTest, EachCopyGetsADiscThatIsAskedFor)
{
    ChangesDiscs(2);
    EXPECT_EQ(Burn(3), ExitCode::Done) << screen.Text();
    EXPECT_EQ(writes, 3);
    EXPECT_EQ(Lines("! Copie 1 sur 3"), 1);
    EXPECT_EQ(Lines("! Copie 2 sur 3 : insérez un disque vierge."), 1);
    EXPECT_EQ(Lines("! Copie 3 sur 3 : insérez un disque vierge."), 1);
    EXPECT_EQ(Lines("! Gravure effectuée avec succès."), 3);
    EXPECT_EQ(screen.Lines().back(), "= 3 copies sur 3 sont faites.");
    EXPECT_FALSE(screen.Shows("Attention")) << screen.Text();
}

TEST_F(CopySeriesTest, ASingleDiscIsBurnedWithoutAWordAboutCopies)
{
    EXPECT_EQ(Burn(1), ExitCode::Done);
    EXPECT_FALSE(screen.Shows("opie")) << screen.Text();
}

TEST_F(CopySeriesTest, ADiscThatWontDoIsGivenBackAndAnotherAskedFor)
{
    input.lines = {"", ""};
    input.onRead = [this] {
        if (input.lines.size() == 1) InsertBlankDisc();
    };
    EXPECT_EQ(Burn(2), ExitCode::Done) << screen.Text();
    EXPECT_TRUE(screen.Shows("! Erreur : ce disque (DVD+R) est fermé")) << screen.Text();
    EXPECT_EQ(Lines("! Copie 2 sur 2 : insérez un disque vierge."), 2);
    EXPECT_EQ(ejections, 3) << "after each copy, and with the disc that won't do";
}

TEST_F(CopySeriesTest, WithoutAPersonABlankDiscHasToLieThere)
{
    EXPECT_EQ(Burn(3, Assent::Given), ExitCode::Failed);
    EXPECT_TRUE(screen.Shows("! Erreur : ce disque (DVD+R) est fermé")) << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 1 copie sur 3 est faite : la première.");
    InsertBlankDisc();
    reloads = true;
    EXPECT_EQ(Burn(3, Assent::Given), ExitCode::Done) << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 3 copies sur 3 sont faites.");
}

TEST_F(CopySeriesTest, WithoutAPersonAnEmptyDriveIsAFailureOfTheNextCopy)
{
    whileWriting = [this] { drive->disc = {}; };
    EXPECT_EQ(Burn(2, Assent::Given), ExitCode::Failed);
    EXPECT_TRUE(screen.Shows("! Erreur : le lecteur est vide.")) << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 1 copie sur 2 est faite : la première.");
}

TEST_F(CopySeriesTest, TheFirstCopyThatFailsIsTheLast)
{
    reloads = true;
    drive->Fail("Write", {0, 0, drive::hresult::kLossOfStreaming});
    EXPECT_EQ(Burn(4, Assent::Given), ExitCode::Failed);
    EXPECT_EQ(writes, 3);
    EXPECT_EQ(screen.Lines().back(), "= 2 copies sur 4 sont faites : les 2 premières.");
}

TEST_F(CopySeriesTest, WhatFailsFromTheStartLeavesNoCopy)
{
    drive->disc = {};
    EXPECT_EQ(Burn(2), ExitCode::NoDisc);
    EXPECT_EQ(screen.Lines().back(), "= Aucune des 2 copies n'est faite.");
}

TEST_F(CopySeriesTest, AContentThatChangesBetweenTwoCopiesIsTold)
{
    ChangesDiscs(2);
    screen.When("! Copie 2 sur 3", [this] { folder.File("photos/sea.jpg", "low tide"); });
    EXPECT_EQ(Burn(3), ExitCode::Incomplete);
    EXPECT_EQ(Lines("! Attention : cette copie n'a pas les mêmes octets que la première : ce qui "
                    "est gravé a changé entre-temps, ou le disque est d'une autre sorte."),
        2)
        << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 3 copies sur 3 sont faites.");
}

TEST_F(CopySeriesTest, ADiscWithLessRoomIsNoPlaceForTheNextCopy)
{
    input.lines = {""};
    input.onRead = [this] {
        InsertBlankDisc();
        drive->disc.freeSectors = 100;
    };
    EXPECT_EQ(Burn(2), ExitCode::Failed);
    EXPECT_EQ(writes, 1);
    EXPECT_TRUE(screen.Shows("ne dispose pas de suffisamment de place")) << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 1 copie sur 2 est faite : la première.");
}

TEST_F(CopySeriesTest, AStopAtThePromptEndsTheSeries)
{
    input.onRead = [this] { isStopped = true; };
    EXPECT_EQ(Burn(3), ExitCode::Stopped);
    EXPECT_EQ(writes, 1);
    EXPECT_EQ(screen.Lines().back(), "= 1 copie sur 3 est faite : la première.");
}

TEST_F(CopySeriesTest, ACopyWhoseStopCameTooLateIsMade)
{
    drive->reports = {{.action = drive::WriteAction::Finalization, .sectorCount = 600},
        {.action = drive::WriteAction::Completed, .sectorCount = 600}};
    whileWriting = [this] { isStopped = true; };
    EXPECT_EQ(Burn(3), ExitCode::Stopped);
    EXPECT_TRUE(
        screen.Shows("Arrêté à votre demande, mais trop tard : le disque est gravé en entier."))
        << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 1 copie sur 3 est faite : la première.");
}

TEST_F(CopySeriesTest, ACopyWhoseComparisonIsStoppedIsMade)
{
    mastering = mastering::MasteringOf(Witnessed({source}, witness), clock);
    drive->onRead = [this](qint64) { isStopped = true; };
    drive->reports = {{.action = drive::WriteAction::WritingData, .sectorCount = 600},
        {.action = drive::WriteAction::Completed, .sectorCount = 600}};
    EXPECT_EQ(Burn(3), ExitCode::Stopped);
    EXPECT_TRUE(screen.Shows("Le disque est gravé en entier")) << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 1 copie sur 3 est faite : la première.");
}

TEST_F(CopySeriesTest, APersonCanHaveEnoughOfIt)
{
    input.lines = {"a"};
    EXPECT_EQ(Burn(3), ExitCode::Failed);
    EXPECT_EQ(writes, 1);
    EXPECT_EQ(screen.Lines().back(), "= 1 copie sur 3 est faite : la première.");
}

TEST_F(CopySeriesTest, ANamedDiscIsAskedForByTheRunAndOnce)
{
    ChangesDiscs(2);
    EXPECT_EQ(Burn(2, Assent::Asked, "dvd"), ExitCode::Done) << screen.Text();
    EXPECT_EQ(Lines("! Merci de mettre un CD dans le lecteur puis cliquer sur Ok"), 2);
    EXPECT_EQ(Lines("! Copie 2 sur 2"), 1);
    EXPECT_FALSE(screen.Shows("insérez"));
}

/// What the drive wrote for the previous copy says nothing about this one.
TEST_F(CopySeriesTest, ACopyThatIsGivenUpIsNotTakenForTheOneBefore)
{
    input.lines = {"", "a"};
    EXPECT_EQ(Burn(2, Assent::Asked, "dvd"), ExitCode::Failed);
    EXPECT_EQ(writes, 1);
    const auto lines = screen.Lines();
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[lines.size() - 2], "! Erreur : rien n'a été gravé.");
    EXPECT_EQ(lines.back(), "= 1 copie sur 2 est faite : la première.");
}

TEST_F(CopySeriesTest, ImagesAreBurnedInCopiesToo)
{
    const std::string file = folder.File("disc.img", std::string(100 * 2048, 'x'));
    const auto burn = [&](Assent assent) {
        return BurnIsoFile(
            {.file = text::NativePath(file),
                .isRaw = true,
                .terms = {.assent = assent, .comparesAfterwards = false, .copies = 2}},
            Context());
    };
    ChangesDiscs(2);
    EXPECT_EQ(burn(Assent::Asked), ExitCode::Done) << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 2 copies sur 2 sont faites.");
    InsertBlankDisc();
    EXPECT_EQ(burn(Assent::Given), ExitCode::Failed);
    EXPECT_TRUE(screen.Shows("! Erreur : ce disque (DVD+R) est fermé")) << screen.Text();
    EXPECT_EQ(screen.Lines().back(), "= 1 copie sur 2 est faite : la première.");
    InsertBlankDisc();
    reloads = true;
    EXPECT_EQ(burn(Assent::Given), ExitCode::Done) << screen.Text();
}

TEST_F(CopySeriesTest, AnImageThatIsReplacedBetweenTwoCopiesIsTold)
{
    const std::string file = folder.File("disc.img", std::string(100 * 2048, 'x'));
    ChangesDiscs(2);
    screen.When(
        "! Copie 2 sur 2", [this] { folder.File("disc.img", std::string(100 * 2048, 'y')); });
    EXPECT_EQ(BurnIsoFile({.file = text::NativePath(file),
                              .isRaw = true,
                              .terms = {.comparesAfterwards = false, .copies = 2}},
                  Context()),
        ExitCode::Incomplete);
    EXPECT_TRUE(screen.Shows("! Attention : cette copie n'a pas les mêmes octets"));
}

} // namespace velmora::terminal
