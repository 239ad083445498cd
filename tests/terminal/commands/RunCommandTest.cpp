// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/commands/RunCommand.h"

#include "tests/support/FakeClock.h"
#include "tests/support/FakeDrive.h"
#include "tests/terminal/ScratchFolder.h"
#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

class RunCommandTest : public testing::Test {
protected:
    ExitCode Run(const std::vector<std::string>& arguments)
    {
        return RunCommand(ParseCommandLine(arguments, sourceDateEpoch, {}),
            ChooseOutput(arguments),
            screen,
            records::BurnRecords(QString::fromStdString(folder.Path("burns"))),
            [this](const DriveTask& task) {
                ++askedForDrives;
                return task({.pump = pump, .clock = clock, .sources = {source}, .hold = [this] {
                                 return Hold();
                             }});
            });
    }

    std::shared_ptr<void> Hold()
    {
        isHeld = true;
        wasHeld = true;
        return {this, [](RunCommandTest* test) { test->isHeld = false; }};
    }

    test::FakePump pump;
    test::FakeClock clock {pump, QDateTime::fromMSecsSinceEpoch(1'700'000'000'000)};
    std::shared_ptr<test::FakeDriveSource> source = std::make_shared<test::FakeDriveSource>();
    TranscriptScreen screen;
    ScratchFolder folder;
    const char* sourceDateEpoch = nullptr;
    int askedForDrives = 0;
    bool wasHeld = false;
    bool isHeld = false;
};

} // namespace

TEST_F(RunCommandTest, HelpIsAResultAndAMistakeANotice)
{
    EXPECT_EQ(Run({"--help"}), ExitCode::Done);
    EXPECT_TRUE(screen.Text().starts_with("= velmora-cli"));
    EXPECT_EQ(Run({"image"}), ExitCode::WrongUsage);
    EXPECT_TRUE(screen.Shows("! Erreur : il manque le dossier"));
    EXPECT_EQ(askedForDrives, 0);
}

TEST_F(RunCommandTest, AMachineWithoutMemoryIsToldAndNothingElseHappens)
{
    folder.File("photos/a.txt");
    screen.When("! Écriture de l'image", [] { throw std::bad_alloc(); });
    EXPECT_EQ(
        Run({"image", folder.Path("photos"), "-o", folder.Path("out.iso")}), ExitCode::Failed);
    EXPECT_FALSE(std::filesystem::exists(folder.Path("out.iso")));
    EXPECT_EQ(screen.Lines().back(),
        "! Erreur : la mémoire de la machine ne suffit pas. Fermez d'autres programmes, ou "
        "partagez le dossier en plusieurs disques, puis recommencez.");
}

TEST_F(RunCommandTest, AnImageIsMadeWithoutDrives)
{
    folder.File("photos/a.txt");
    EXPECT_EQ(Run({"image", folder.Path("photos"), "-o", folder.Path("p.iso")}), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("Contenu : 1 fichier"));
    EXPECT_EQ(askedForDrives, 0);
}

TEST_F(RunCommandTest, AQuestionAboutDrivesKeepsNothingAwake)
{
    source->Plug(u"a"_s)->facts.vendor = u"PIONEER"_s;
    EXPECT_EQ(Run({"recorders"}), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("PIONEER"));
    EXPECT_EQ(askedForDrives, 1);
    EXPECT_FALSE(wasHeld);
}

TEST_F(RunCommandTest, CopiesAreTheSameToTheByteAndEachLeavesARecord)
{
    folder.File("photos/a.txt");
    const auto drive = source->Plug(u"a"_s);
    std::vector<std::vector<std::byte>> discs;
    drive->onCall = [&] {
        if (drive->Count("Eject") > static_cast<int>(discs.size())) { // the tray reloads
            discs.push_back(drive->written);
            clock.Pause(100);
        }
        drive->disc = test::DiscOf(27, drive::DiscState::Blank);
    };
    EXPECT_EQ(Run({"burn", folder.Path("photos"), "--copies", "2", "--yes", "--no-compare"}),
        ExitCode::Done)
        << screen.Text();
    ASSERT_EQ(discs.size(), 2U);
    EXPECT_FALSE(discs[0].empty());
    EXPECT_EQ(discs[0], discs[1]);
    const records::BurnRecords records(QString::fromStdString(folder.Path("burns")));
    ASSERT_EQ(records.Numbers(), (QList {1, 2}));
    EXPECT_GE(records.Read(1)->date.secsTo(records.Read(2)->date), 100);
}

TEST_F(RunCommandTest, ABurnBearsTheTimeThatTheEnvironmentGives)
{
    folder.File("photos/sub/a.txt");
    sourceDateEpoch = "86400";
    const auto drive = source->Plug(u"a"_s);
    std::vector<std::vector<std::byte>> discs;
    for (int i = 0; i < 2; ++i) {
        drive->disc = test::DiscOf(27, drive::DiscState::Blank);
        EXPECT_EQ(Run({"burn", folder.Path("photos"), "--yes", "--no-compare"}), ExitCode::Done)
            << screen.Text();
        discs.push_back(drive->written);
        clock.Pause(100);
        for (const char* touched : {"photos", "photos/sub", "photos/sub/a.txt"}) {
            std::filesystem::last_write_time(
                folder.Path(touched), std::filesystem::file_time_type::clock::now());
        }
    }
    constexpr std::size_t kCreated = std::size_t {16} * 2048 + 813; // ECMA-119 8.4.26
    ASSERT_GT(discs[0].size(), kCreated + 16);
    EXPECT_EQ(std::memcmp(&discs[0][kCreated], "1970010200000000", 16), 0);
    EXPECT_TRUE(discs[0] == discs[1]);
}

TEST_F(RunCommandTest, WhichCopiesAreGoodIsToldEvenWhereResultsAreNot)
{
    folder.File("photos/a.txt");
    const auto drive = source->Plug(u"a"_s);
    drive->disc = test::DiscOf(27, drive::DiscState::Blank);
    drive->onCall = [&] {
        if (drive->Count("Write") > 0) {
            drive->disc = test::DiscOf(27, drive::DiscState::Closed);
        }
    };
    EXPECT_EQ(Run({"burn", folder.Path("photos"), "--copies", "3", "--yes", "--no-compare", "-q"}),
        ExitCode::Failed);
    ASSERT_EQ(screen.Lines().size(), 2U) << screen.Text();
    EXPECT_TRUE(screen.Lines()[0].starts_with("! Erreur : ce disque (DVD+R) est fermé"));
    EXPECT_EQ(screen.Lines()[1], "! Erreur : 1 copie sur 3 est faite : la première.");
}

TEST_F(RunCommandTest, TheMachineStaysAwakeWhileADiscIsChanged)
{
    source->Plug(u"a"_s);
    bool isHeldMeanwhile = false;
    screen.When("! Erreur", [&] { isHeldMeanwhile = isHeld; });
    EXPECT_EQ(Run({"erase", "--recorder", "9"}), ExitCode::Failed);
    EXPECT_TRUE(isHeldMeanwhile) << screen.Text();
    EXPECT_FALSE(isHeld);
}

TEST_F(RunCommandTest, AJobForAProgramIsToldInObjectsAlone)
{
    folder.File("photos/a.txt");
    EXPECT_EQ(Run({"image", folder.Path("photos"), "-o", folder.Path("p.iso"), "--json"}),
        ExitCode::Done);
    for (const std::string& line : screen.Lines()) {
        EXPECT_TRUE(line.starts_with("= {\"")) << line;
    }
    EXPECT_TRUE(screen.Shows("\"phase\":\"writingImage\",\"type\":\"phase\""));
    EXPECT_TRUE(screen.Lines().back().starts_with(
        "= {\"command\":\"image\",\"ending\":\"done\",\"exitCode\":0,"));
    EXPECT_TRUE(screen.Lines().back().ends_with("\"type\":\"result\",\"version\":1}"));
}

TEST_F(RunCommandTest, AProgramIsToldOfAMistakeToo)
{
    EXPECT_EQ(Run({"erase", "--json"}), ExitCode::WrongUsage);
    EXPECT_EQ(screen.Text(),
        "= {\"text\":\"avec --json aucune question ne peut être posée : ajoutez --yes.\","
        "\"type\":\"error\",\"version\":1}\n"
        "= {\"command\":\"erase\",\"ending\":\"refused\",\"exitCode\":2,\"reports\":[],"
        "\"type\":\"result\",\"version\":1}\n");
    EXPECT_EQ(askedForDrives, 0);
}

TEST_F(RunCommandTest, OfAGoodJobNothingIsShownToWhoWantsQuiet)
{
    folder.File("photos/a.txt");
    EXPECT_EQ(
        Run({"image", folder.Path("photos"), "-o", folder.Path("p.iso"), "-q"}), ExitCode::Done);
    EXPECT_EQ(screen.Text(), "");
    EXPECT_EQ(Run({"erase", "-q", "--recorder", "9"}), ExitCode::Failed);
    EXPECT_EQ(screen.Text(),
        "! Erreur : aucun graveur n'a été trouvé.\nBranchez un graveur, ou "
        "faites-en un virtuel : velmora-tray create\n");
}

} // namespace velmora::terminal
