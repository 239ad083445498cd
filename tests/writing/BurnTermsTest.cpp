// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The file systems, the speed and the end of session that a disc is burned with.
#include "tests/writing/RunBench.h"

namespace velmora::test {

using SessionRunTest = RunBench;

namespace {

struct Format {
    const char* name;
    shell::DiscTypeChoice choice;
    FoundDisc disc;
    writing::FileSystemOption fileSystem;
    const char* fileSystems; ///< FileSystemsToCreate
    const char* present;     ///< the disc in the log
    const char* multiplier;  ///< of the fastest speed
};

using shell::DiscTypeChoice;
using writing::FileSystemOption;

void PrintTo(const Format& format, std::ostream* out) { *out << format.name; }

class FormatRunTest : public RunBench, public testing::WithParamInterface<Format> { };

const FoundDisc kDvdPlusR {.type = 6, .freeBlocks = 2'295'104, .speeds = {10800, 5400, 2700}};
const FoundDisc kDvdDashR {.type = 9, .freeBlocks = 2'298'496, .speeds = {5400, 2700}};
const FoundDisc kDualLayer {.type = 8, .freeBlocks = 4'173'824, .speeds = {5400, 2700}};
const FoundDisc kBdR {.type = 18, .freeBlocks = 12'219'392, .speeds = {13170, 8780}};

} // namespace

TEST_P(FormatRunTest, BurnsADisc)
{
    const Format& format = GetParam();
    state.MediaTypeChoice = format.choice;
    script.discs = {format.disc};
    options.fileSystem = format.fileSystem;
    const std::string choices = "FSI1.ChooseImageDefaultsForMediaType("
        + std::to_string(static_cast<int>(format.choice))
        + ")\nFSI1.FileSystemsToCreate = " + format.fileSystems + "\n";

    EXPECT_EQ(Burn(),
        kConnected + Configured(choices) + kLetterAdded + kImageMade + Looked(kPrompted)
            + Present(format.present) + SpeedLogged(format.multiplier, "Maximum") + Written()
            + kSucceeded);
    EXPECT_TRUE(state.BurnDone);
}

INSTANTIATE_TEST_SUITE_P(Formats,
    FormatRunTest,
    testing::Values(
        Format {"CdR", DiscTypeChoice::CdR, {}, FileSystemOption::Joliet, "3", "CD-R", "41"},
        Format {"CdRwForACd",
            DiscTypeChoice::CdR,
            {.type = 3},
            FileSystemOption::Udf,
            "4",
            "CD-RW",
            "41"},
        Format {"DvdPlusR",
            DiscTypeChoice::DvdPlusR,
            kDvdPlusR,
            FileSystemOption::Joliet,
            "3",
            "DVD+R",
            "16"},
        Format {"DvdMinusRForADvd",
            DiscTypeChoice::DvdPlusR,
            kDvdDashR,
            FileSystemOption::Iso9660,
            "1",
            "DVD-R",
            "8"},
        Format {"DualLayer",
            DiscTypeChoice::DvdPlusRDualLayer,
            kDualLayer,
            FileSystemOption::Udf,
            "4",
            "DVD+R Dual Layer",
            "8"},
        Format {"SingleLayerForADualLayer",
            DiscTypeChoice::DvdPlusRDualLayer,
            kDvdPlusR,
            FileSystemOption::Udf,
            "4",
            "DVD+R",
            "16"},
        Format {"BluRay",
            DiscTypeChoice::BdR,
            kBdR,
            FileSystemOption::Udf,
            "4",
            "Blue-Ray Disc R",
            "0"}),
    [](const auto& row) { return std::string(row.param.name); });

namespace {

struct Speed {
    const char* name;
    FoundDisc disc;
    const char* selection;
    qint16 listIndex;
    const char* retained;
    const char* asked; ///< what SetWriteSpeed is given
};

void PrintTo(const Speed& speed, std::ostream* out) { *out << speed.name; }

class SpeedRunTest : public RunBench, public testing::WithParamInterface<Speed> { };

} // namespace

TEST_P(SpeedRunTest, AsksForTheSpeed)
{
    const Speed& speed = GetParam();
    state.MediaTypeChoice = static_cast<shell::DiscTypeChoice>(speed.disc.type);
    script.discs = {speed.disc};
    options.speed.text = QString::fromLatin1(speed.selection);
    options.speed.listIndex = speed.listIndex;

    const std::string run = Burn();

    const std::string written = SpeedLogged(speed.retained, speed.selection)
        + Written("dataWriter1.SetWriteSpeed(" + std::string(speed.asked) + ", False)\n");
    EXPECT_NE(run.find(written), std::string::npos) << run;
    EXPECT_TRUE(state.BurnDone);
}

INSTANTIATE_TEST_SUITE_P(Branches,
    SpeedRunTest,
    testing::Values(Speed {"Maximum", {}, "Maximum", 0, "41", "-1"},
        Speed {"OneOfTheList", {}, "14x", 2, "14", "1200"},
        Speed {"TheSlowestOfTheList", {}, "7x", 3, "7", "600"},
        Speed {"BetweenTwo", {}, "16x", 2, "14", "1200"},
        Speed {"BelowAll", {}, "4x", 3, "41", "-1"},
        Speed {"BluRayFourTimes", kBdR, "4x", 1, "3", "4"},
        Speed {"BluRayMaximum", kBdR, "Maximum", 0, "0", "-1"},
        Speed {"OneSpeed", {.speeds = {1800}}, "2.5x", 1, "3", "2"},
        Speed {"OneSpeedMaximum", {.speeds = {1800}}, "Maximum", 0, "", "-1"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SessionRunTest, OnlyWithoutMultisessionTheDiscIsClosed)
{
    using writing::SessionOption;
    const std::string open = WholeDiscRun();
    const std::string closing
        = "dataWriter1.SetWriteSpeed(-1, False)\ndataWriter1.ForceMediaToBeClosed = True\n";
    for (const SessionOption option :
        {SessionOption::StartMultisession, SessionOption::ContinueMultisession}) {
        options.session = option;
        EXPECT_EQ(Burn(), open);
    }
    options.session = writing::SessionOption::CloseDisc;
    EXPECT_EQ(Burn(),
        kConnected + Configured() + kLetterAdded + kImageMade + Looked(kPrompted) + Present("CD-R")
            + SpeedLogged("41", "Maximum") + Written(closing) + kSucceeded);
}

} // namespace velmora::test
