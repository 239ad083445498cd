// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnJob.h"

#include "tests/terminal/MediumOfOption.h"
#include "tests/terminal/disc/DiscJobBench.h"

#include <sys/stat.h>

#include <array>
#include <filesystem>

namespace velmora::terminal {

using drive::DiscState;

class BurnJobTest : public DiscJobBench {
protected:
    BurnJobTest() { folder.File("photos/sea.jpg"); }

    ExitCode Burn(const ContentRequest& content = {})
    {
        const DiscContext context = Context();
        return BurnJob({.folder = text::NativePath(folder.Path("photos")),
                           .content = content,
                           .terms = {.assent = Assent::Given, .comparesAfterwards = false}},
            context)
            .Run();
    }

    /// The disc is refused at once and in these words, before anything is read.
    void ExpectRefusal(const std::string& words)
    {
        EXPECT_EQ(Burn(), ExitCode::Failed);
        EXPECT_EQ(screen.Lines().back(), "! Erreur : " + words);
        EXPECT_FALSE(screen.Shows("Lecture du dossier"));
        EXPECT_EQ(clock.Timer(), 0);
    }
};

TEST_F(BurnJobTest, ABlankDiscIsBurned)
{
    EXPECT_EQ(Burn(), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("! Lecture du dossier…"));
    EXPECT_TRUE(screen.Shows("= Disque : ")) << screen.Text();
    EXPECT_FALSE(drive->written.empty());
}

TEST_F(BurnJobTest, AGoodDiscThatTheDriveKeepsIsMade)
{
    drive->Fail("Eject", {drive::hresult::kFail});
    EXPECT_EQ(Burn(), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("= Disque : "));
    EXPECT_FALSE(screen.Shows("Gravure effectuée avec succès."));
    EXPECT_TRUE(screen.Lines().back().starts_with(
        "! Attention : le disque est gravé, mais n'a pas été éjecté : "))
        << screen.Text();
}

TEST_F(BurnJobTest, AStopWhileTheSessionEndsLosesNoDisc)
{
    drive->reports = {{.action = drive::WriteAction::Finalization, .sectorCount = 600},
        {.action = drive::WriteAction::Completed, .sectorCount = 600}};
    drive->onCall = [this] { isStopped = drive->Count("Write") > 0; };
    EXPECT_EQ(Burn(), ExitCode::Stopped);
    EXPECT_TRUE(screen.Shows("Le disque est gravé en entier")) << screen.Text();
    EXPECT_FALSE(screen.Shows("inachevé")) << screen.Text();
    EXPECT_FALSE(screen.Shows("rien n'a été gravé")) << screen.Text();
}

TEST_F(BurnJobTest, AStopBehindAFailureIsNoStop)
{
    drive->Fail("Write", {drive::hresult::kWriteError});
    screen.When("! Une erreur est survenue : ", [this] { isStopped = true; });
    EXPECT_EQ(Burn(), ExitCode::Failed);
    EXPECT_TRUE(isStopped);
    EXPECT_FALSE(screen.Shows("Arrêté à votre demande")) << screen.Text();
}

TEST_F(BurnJobTest, TheSumsOfTheFilesAreListedOnDemand)
{
    folder.File("photos/x", "x");
    EXPECT_EQ(Burn({.recordsSums = true}), ExitCode::Done);
    const std::string written(
        reinterpret_cast<const char*>(drive->written.data()), drive->written.size());
    EXPECT_NE(written.find("2d711642b726b04401627ca9fbac32f5c8530fb1903cc4db02258717921a4881  x\n"),
        std::string::npos);
}

TEST_F(BurnJobTest, SumsThatTheFolderHasAlreadyAreKeptAndTold)
{
    folder.File("photos/SHA256SUMS", "mine");
    EXPECT_EQ(Burn({.recordsSums = true}), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("! Attention : le dossier a déjà un « SHA256SUMS »")) << screen.Text();
}

TEST_F(BurnJobTest, ADiscThatTakesNothingIsToldBeforeTheFolderIsRead)
{
    drive->disc = test::DiscOf(27, DiscState::Closed);
    ExpectRefusal("ce disque (DVD+R) est fermé : plus rien ne peut y être gravé. Mettez-en un "
                  "autre, vierge, puis recommencez.");
    drive->disc = test::DiscOf(10, DiscState::Closed);
    ExpectRefusal("ce disque (CD-RW) est fermé : plus rien ne peut y être gravé. Effacez-le par "
                  "« velmora-cli erase » ou mettez-en un autre, puis recommencez.");
    drive->disc = test::DiscOf(9, DiscState::Appendable);
    drive->disc.freeSectors = 0;
    ExpectRefusal("ce disque (CD-R) est plein. Mettez-en un autre, vierge, puis recommencez.");
    drive->disc = test::DiscOf(18, DiscState::Blank);
    drive->disc.writeProtected = true;
    ExpectRefusal("ce disque (DVD-RAM) est protégé en écriture : ôtez la protection ou mettez-en "
                  "un autre, puis recommencez.");
    drive->disc = test::DiscOf(8, DiscState::Closed);
    ExpectRefusal("ce disque (CD-ROM) ne peut pas être gravé dans ce lecteur : mettez-en un "
                  "autre, puis recommencez.");
}

TEST_F(BurnJobTest, ADiscOfAnUnfinishedOrUnknownSessionIsToldAtOnce)
{
    drive->disc = test::DiscOf(27, DiscState::Appendable);
    drive->disc.lastSessionOpen = true;
    drive->disc.damaged = true;
    ExpectRefusal("ce disque (DVD+R) porte une session inachevée : une gravure y a été "
                  "interrompue. Mettez-en un autre, vierge, puis recommencez.");
    drive->disc = test::DiscOf(27, DiscState::Appendable);
    drive->disc.damaged = true;
    drive->disc.freeSectors = 0;
    ExpectRefusal("la dernière session de ce disque (DVD+R) est endommagée. Mettez-en un autre, "
                  "vierge, puis recommencez.");
    drive->disc = test::DiscOf(10, DiscState::Unsupported); // as drives report an unfinished CD
    ExpectRefusal("ce disque (CD-RW) ne peut pas être gravé tel qu'il est : une gravure y est "
                  "restée inachevée, ou ce lecteur ne le gère pas. Effacez-le par « velmora-cli "
                  "erase » ou mettez-en un autre, puis recommencez.");
    drive->disc = test::DiscOf(27, DiscState::Appendable); // of which no file system is known
    drive->disc.sessions = {{0, 1000}};
    ExpectRefusal(
        "ce disque (DVD+R) n'est pas vierge. Mettez-en un autre, vierge, puis recommencez.");
    drive->disc = test::DiscOf(26, DiscState::Overwritable);
    ExpectRefusal("ce disque (DVD+RW) n'est pas vierge. Effacez-le par « velmora-cli erase » ou "
                  "mettez-en un autre, puis recommencez.");
}

TEST_F(BurnJobTest, ADriveThatTellsNoFreeRoomIsNotTheFoldersFault)
{
    for (const bool isDamaged : {false, true}) {
        drive->disc.freeSectors = 0;
        drive->disc.damaged = isDamaged;
        ExpectRefusal("le lecteur n'annonce aucune place libre sur ce disque (DVD+R) : mettez-en "
                      "un autre, puis recommencez.");
    }
}

TEST_F(BurnJobTest, ADiscThatIsNamedIsJudgedAtOnceWhereNobodyCanChangeIt)
{
    drive->disc = test::DiscOf(27, DiscState::Closed);
    const DiscContext context = Context();
    const auto burn = [&](Assent assent) {
        return BurnJob({.folder = text::NativePath(folder.Path("photos")),
                           .content = {.medium = MediumOfOption("dvd")},
                           .terms = {.assent = assent, .comparesAfterwards = false}},
            context)
            .Run();
    };
    EXPECT_EQ(burn(Assent::Given), ExitCode::Failed);
    EXPECT_TRUE(screen.Lines().back().starts_with("! Erreur : ce disque (DVD+R) est fermé"));
    EXPECT_EQ(drive->Count("Eject"), 0);
    EXPECT_EQ(burn(Assent::Asked), ExitCode::Failed); // no answer to the question for a disc
    EXPECT_EQ(drive->Count("Eject"), 1);
}

TEST_F(BurnJobTest, ACdHasEightyMinutesUnlessItIsNamedOrTheOneInTheDriveHasMore)
{
    folder.File("photos/long.bin", "");
    std::filesystem::resize_file(folder.Path("photos/long.bin"), 750'000'000);
    const DiscContext context = Context();
    const auto fits = [&](const char* medium, qint64 freeSectors) {
        drive->disc = test::DiscOf(9, DiscState::Blank);
        drive->disc.freeSectors = freeSectors;
        const std::size_t before = screen.Lines().size();
        EXPECT_EQ(BurnJob({.folder = text::NativePath(folder.Path("photos")),
                              .content = {.medium = MediumOfOption(medium)}},
                      context)
                      .Run(),
            ExitCode::Failed); // nobody answers
        const std::vector<std::string> said(
            screen.Lines().begin() + static_cast<qsizetype>(before), screen.Lines().end());
        return std::ranges::none_of(said, [](const std::string& line) {
            return line.find("ne dispose pas de suffisamment de place") != std::string::npos;
        });
    };
    EXPECT_FALSE(fits("cd", 359'847));
    EXPECT_TRUE(fits("cd", 404'850));
    EXPECT_TRUE(fits("cd-90", 359'847)) << "another disc is asked for";
}

TEST_F(BurnJobTest, AStopIsHeardBeforeAnythingIsRead)
{
    std::filesystem::remove(folder.Path("photos/sea.jpg"));
    screen.When("! Lecture du dossier…", [this] { isStopped = true; });
    EXPECT_EQ(Burn(), ExitCode::Stopped);
    EXPECT_EQ(screen.Text(),
        "! Lecture du dossier…\n"
        "! Arrêté à votre demande : rien n'a été gravé.\n");
}

TEST_F(BurnJobTest, AStopIsHeardWhileTheDriveGetsReady)
{
    for (int i = 0; i < 31; ++i) {
        drive->Fail("Examine", {drive::hresult::kBecomingReady});
    }
    pump.onPump = [this] { isStopped = clock.Timer() > 2; };
    EXPECT_EQ(Burn(), ExitCode::Stopped);
    EXPECT_EQ(clock.Timer(), 4);
    EXPECT_EQ(screen.Text(),
        "! Le lecteur se prépare ; patience, une demi-minute environ.\n"
        "! Arrêté à votre demande : rien n'a été gravé.\n");
}

/// A folder that a DVD can't hold unchanged.
class BurnRemarksTest : public BurnJobTest {
protected:
    BurnRemarksTest()
    {
        folder.File("photos/sub/a:b");
        folder.File("photos/sub/twin");
        folder.File("photos/sub/TWIN");
        std::filesystem::create_symlink("nowhere", folder.Path("photos/sub/dead"));
        std::filesystem::create_symlink("/etc/hosts", folder.Path("photos/sub/out"));
        EXPECT_EQ(mkfifo(folder.Path("photos/sub/tube").c_str(), 0600), 0);
    }

    ExitCode BurnTelling(Detail detail)
    {
        const DiscContext context = Context();
        return BurnJob({.folder = text::NativePath(folder.Path("photos")),
                           .content = {.detail = detail},
                           .terms = {.assent = Assent::Given, .comparesAfterwards = false}},
            context)
            .Run();
    }

    /// What is shown between the size of the disc and the comparison.
    std::string Remarks() const
    {
        const std::string text = screen.Text();
        const std::size_t begin = text.find('\n', text.find("= Disque : ")) + 1;
        return text.substr(begin, text.find("= Comparaison") - begin);
    }
};

TEST_F(BurnRemarksTest, RemarksAreCounted)
{
    EXPECT_EQ(BurnTelling(Detail::Counts), ExitCode::Incomplete);
    EXPECT_EQ(Remarks(),
        "= Noms modifiés : 1\n"
        "= Noms que certains lecteurs perdent : 2\n"
        "= Liens qui mènent hors du disque : 1\n"
        "= Éléments absents du disque : 1\n"
        "= Éléments absents d'un système de fichiers : 2\n"
        "= La liste s'obtient avec l'option --report.\n");
}

TEST_F(BurnRemarksTest, TheReportNamesEachAsThatOfAnImageDoes)
{
    EXPECT_EQ(BurnTelling(Detail::Lists), ExitCode::Incomplete);
    const std::string hazard = " » : Ce nom ne diffère d'un autre que par les majuscules : Windows "
                               "n'ouvre que l'un des deux.\n";
    const std::string noLinks = " » : Ce système de fichiers n'a pas de liens symboliques, et "
                                "celui-ci ne mène à aucun fichier de l'image.\n";
    EXPECT_EQ(Remarks(),
        "= Noms modifiés : 1\n"
        "=   Joliet : sub/a:b -> a_b\n"
        "= Noms que certains lecteurs perdent : 2\n"
        "=   « sub/TWIN"
            + hazard + "=   « sub/twin" + hazard
            + "= Liens qui mènent hors du disque : 1\n"
              "=   sub/out -> /etc/hosts (chemin absolu)\n"
              "= Éléments absents du disque : 1\n"
              "=   « "
            + folder.Path("photos/sub/tube")
            + " » : Ce n'est ni un fichier ni un répertoire (tube, socket ou périphérique).\n"
              "= Éléments absents d'un système de fichiers : 2\n"
              "=   Joliet : « sub/dead"
            + noLinks + "=   Joliet : « sub/out" + noLinks);
}

} // namespace velmora::terminal
