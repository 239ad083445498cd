// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/CommandLine.h"

#include "terminal/arguments/HelpText.h"
#include "tests/terminal/MediumOfOption.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmora::terminal {

namespace {

Command ParseDisc(std::vector<std::string> arguments)
{
    return ParseCommandLine(std::move(arguments), nullptr, {});
}

template <class Request> Request Asked(std::vector<std::string> arguments)
{
    const auto command = ParseDisc(std::move(arguments));
    if (const auto* reply = std::get_if<Reply>(&command)) {
        ADD_FAILURE() << reply->text;
        return {};
    }
    return std::get<Request>(command);
}

BurnRequest Burn(std::vector<std::string> arguments)
{
    return Asked<BurnRequest>(std::move(arguments));
}

/// The message about a mistake; empty when there is none.
std::string SaidOf(std::vector<std::string> arguments)
{
    const auto command = ParseDisc(std::move(arguments));
    const auto* reply = std::get_if<Reply>(&command);
    return reply && reply->code == ExitCode::WrongUsage ? reply->text : "";
}

std::string Refused(const std::string& text, const std::string& command)
{
    return "Erreur : " + text + "\nL'aide s'obtient par « velmora-cli " + command + " --help ».";
}

std::string FileSystemsOf(const BurnRequest& request)
{
    const auto& chosen = request.content.fileSystems.value();
    return std::string(chosen.iso9660 ? "iso " : "") + (chosen.joliet ? "joliet " : "")
        + (chosen.udf ? "udf" : "");
}

} // namespace

TEST(DiscCommandLineTest, AFolderIsEnoughToBurn)
{
    const auto request = Burn({"burn", "Photos"});
    EXPECT_EQ(request.folder.Bytes(), "Photos");
    EXPECT_EQ(request.content.volumeName, "");
    EXPECT_EQ(request.content.medium, nullptr);
    EXPECT_FALSE(request.content.fileSystems);
    EXPECT_FALSE(request.content.level);
    EXPECT_FALSE(request.speed);
    EXPECT_FALSE(request.closesDisc);
    EXPECT_EQ(request.terms.recorder, 0U);
    EXPECT_EQ(request.terms.assent, Assent::Asked);
    EXPECT_TRUE(request.terms.comparesAfterwards);
}

TEST(DiscCommandLineTest, ABurnTakesTheTimeOfTheEnvironmentAsAnImageDoes)
{
    EXPECT_EQ(Burn({"burn", "d"}).content.time, std::nullopt);
    const auto timed = ParseCommandLine({"burn", "d"}, "86400", {});
    EXPECT_EQ(std::get<BurnRequest>(timed).content.time, (image::TimeStamp {86400, 0}));
    const auto mistaken = ParseCommandLine({"burn", "d"}, "demain", {});
    EXPECT_EQ(std::get<Reply>(mistaken).text,
        Refused("la variable SOURCE_DATE_EPOCH vaut « demain » : donnez-lui un nombre de secondes "
                "depuis 1970, ou supprimez-la.",
            "burn"));
}

TEST(DiscCommandLineTest, EveryOptionOfABurnIsTaken)
{
    const auto request = Burn({"burn",
        "Photos",
        "-n",
        "Été",
        "--recorder",
        "2",
        "--medium",
        "dvd-dl",
        "--fs",
        "udf",
        "--speed",
        "8x",
        "--close",
        "--no-verify",
        "--yes"});
    EXPECT_EQ(request.content.volumeName, "Été");
    EXPECT_EQ(request.content.medium, MediumOfOption("dvd-dl"));
    EXPECT_EQ(FileSystemsOf(request), "udf");
    EXPECT_EQ(request.speed, 8U);
    EXPECT_TRUE(request.closesDisc);
    EXPECT_EQ(request.terms.recorder, 2U);
    EXPECT_EQ(request.terms.assent, Assent::Given);
    EXPECT_FALSE(request.terms.comparesAfterwards);
}

TEST(DiscCommandLineTest, TheMediumHasTheWordsOfAnImageAndDetect)
{
    for (const char* option : {"--medium", "--format"}) {
        for (const Medium& medium : Media()) {
            EXPECT_EQ(
                Burn({"burn", "d", option, std::string(medium.option)}).content.medium, &medium);
        }
        EXPECT_EQ(Burn({"burn", "d", option, "detect"}).content.medium, nullptr);
    }
}

TEST(DiscCommandLineTest, FileSystemsAndLevelAreChosenAsForAnImage)
{
    const auto cd = [](std::vector<std::string> options) {
        options.insert(options.begin(), {"burn", "d", "--medium", "cd"});
        return Burn(options);
    };
    EXPECT_EQ(FileSystemsOf(cd({"--fs", "iso"})), "iso ");
    EXPECT_EQ(FileSystemsOf(cd({"--fs", "joliet"})), "iso joliet ");
    EXPECT_EQ(FileSystemsOf(cd({"--fs", "udf"})), "udf");
    EXPECT_EQ(FileSystemsOf(Burn({"burn", "d", "--medium", "bd", "--fs", "udf"})), "udf");
    EXPECT_EQ(cd({"--fs", "iso", "--level", "1"}).content.level, image::IsoLevel::Level1);
    EXPECT_EQ(cd({"--fs", "iso", "--level", "2"}).content.level, image::IsoLevel::Level2);
}

TEST(DiscCommandLineTest, AttributesCanBeKeptAndRemarksNamedAsForAnImage)
{
    EXPECT_EQ(Burn({"burn", "d"}).content.rights, image::Rights::OfEverybody);
    EXPECT_EQ(Burn({"burn", "d", "--attributes", "keep"}).content.rights, image::Rights::OfSource);
    EXPECT_EQ(Burn({"burn", "d"}).content.detail, Detail::Counts);
    EXPECT_EQ(Burn({"burn", "d", "--report"}).content.detail, Detail::Lists);
}

TEST(DiscCommandLineTest, LinksAreKeptUnlessTheyAreToBeFollowed)
{
    EXPECT_EQ(Burn({"burn", "d"}).content.links, LinkChoice::Keep);
    EXPECT_EQ(Burn({"burn", "d", "--links", "follow"}).content.links, LinkChoice::Follow);
}

TEST(DiscCommandLineTest, CopiesAreFromTwoToNinetyNine)
{
    EXPECT_EQ(Burn({"burn", "d"}).terms.copies, 1U);
    EXPECT_EQ(Burn({"burn", "d", "--copies", "2"}).terms.copies, 2U);
    EXPECT_EQ(Asked<IsoBurnRequest>({"burn-iso", "i", "--copies", "99"}).terms.copies, 99U);
    for (const std::string command : {"burn", "burn-iso"}) {
        for (const std::string value : {"0", "1", "100", "-2", "2x", "deux"}) {
            EXPECT_EQ(SaidOf({command, "d", "--copies=" + value}),
                Refused(
                    "« " + value + " » ne convient pas à --copies : donnez un nombre de 2 à 99.",
                    command));
        }
    }
    EXPECT_NE(SaidOf({"erase", "--copies", "2"}), "");
}

TEST(DiscCommandLineTest, SumsAreRecordedOnDemand)
{
    EXPECT_FALSE(Burn({"burn", "d"}).content.recordsSums);
    EXPECT_TRUE(Burn({"burn", "d", "--sums"}).content.recordsSums);
}

TEST(DiscCommandLineTest, TheLevelIsAChoiceOnlyOfACdWithIso9660Alone)
{
    const std::string refusal = Refused("--level ne vaut, pour une gravure, que sur un CD en ISO "
                                        "9660 seul : ajoutez --medium cd --fs iso.",
        "burn");
    EXPECT_EQ(SaidOf({"burn", "d", "--level", "1"}), refusal);
    EXPECT_EQ(SaidOf({"burn", "d", "--medium", "cd", "--level", "1"}), refusal);
    EXPECT_EQ(SaidOf({"burn", "d", "--medium", "cd", "--fs", "joliet", "--level", "1"}), refusal);
    EXPECT_EQ(SaidOf({"burn", "d", "--medium", "dvd", "--fs", "iso", "--level", "1"}), refusal);
    EXPECT_EQ(SaidOf({"burn", "d", "--medium", "cd", "--fs", "iso", "--level", "3"}),
        Refused("« 3 » ne convient pas à --level : donnez 1 ou 2.", "burn"));
}

TEST(DiscCommandLineTest, WhatCannotBeBurnedSoIsSaidBefore)
{
    EXPECT_EQ(SaidOf({"burn"}), Refused("il manque le dossier à graver.", "burn"));
    EXPECT_EQ(SaidOf({"burn-iso"}), Refused("il manque l'image à graver.", "burn-iso"));
    EXPECT_EQ(SaidOf({"burn", "d", "--medium", "vhs"}),
        Refused("« vhs » ne convient pas à --medium : donnez cd, cd-90, dvd, dvd-dl, bd, bd-dl ou "
                "detect.",
            "burn"));
    EXPECT_EQ(SaidOf({"burn", "d", "--medium", "cd", "--fs", "all"}),
        Refused("« all » ne convient pas à --fs : donnez iso, joliet ou udf.", "burn"));
    EXPECT_EQ(SaidOf({"burn", "d", "--fs", "udf"}),
        Refused("--fs demande de dire le disque : ajoutez --medium cd, cd-90, dvd, dvd-dl, bd ou "
                "bd-dl.",
            "burn"));
    EXPECT_EQ(SaidOf({"burn", "d", "--medium", "bd", "--fs", "iso"}),
        Refused("un Blu-ray reçoit le système de fichiers UDF : retirez --fs.", "burn"));
    EXPECT_EQ(SaidOf({"burn", "d", "-n", ""}),
        Refused(
            "le nom de volume «  » ne convient pas : donnez 1 à 32 caractères, sans caractère de "
            "contrôle.",
            "burn"));
    for (const char* speed : {"0", "x", "4,5", "100", "-1", "8xx"}) {
        EXPECT_EQ(SaidOf({"burn", "d", std::string("--speed=") + speed}),
            Refused(std::string("« ") + speed
                    + " » ne convient pas à --speed : donnez un multiple entier, de 1 à 99.",
                "burn"));
    }
    for (const char* command : {"burn", "burn-iso", "erase"}) {
        std::vector<std::string> arguments {command, "--recorder=0"};
        if (command != std::string("erase")) {
            arguments.emplace_back("x");
        }
        EXPECT_EQ(SaidOf(arguments),
            Refused("« 0 » ne convient pas à --recorder : donnez un numéro de la liste, à partir "
                    "de 1.",
                command));
    }
}

TEST(DiscCommandLineTest, AnImageIsBurnedWithFewOptions)
{
    const auto request = Asked<IsoBurnRequest>({"burn-iso", "a.iso", "--recorder", "3", "--yes"});
    EXPECT_EQ(request.file.Bytes(), "a.iso");
    EXPECT_EQ(request.terms.recorder, 3U);
    EXPECT_EQ(request.terms.assent, Assent::Given);
    EXPECT_TRUE(request.terms.comparesAfterwards);
    EXPECT_FALSE(request.isRaw);
    EXPECT_TRUE(Asked<IsoBurnRequest>({"burn-iso", "a", "--raw"}).isRaw);
    for (const char* const no : {"--no-compare", "--no-verify"}) {
        EXPECT_FALSE(Asked<IsoBurnRequest>({"burn-iso", "a", no}).terms.comparesAfterwards) << no;
    }
    EXPECT_NE(SaidOf({"burn-iso", "a.iso", "--speed", "4"}), "");
    EXPECT_NE(SaidOf({"burn", "a", "--raw"}), "");
}

TEST(DiscCommandLineTest, AnEraseIsQuickUnlessItIsToBeFull)
{
    EXPECT_FALSE(Asked<EraseRequest>({"erase"}).isFull);
    const auto request = Asked<EraseRequest>({"erase", "--full", "--recorder", "2"});
    EXPECT_TRUE(request.isFull);
    EXPECT_EQ(request.terms.recorder, 2U);
    EXPECT_NE(SaidOf({"erase", "--no-verify"}), "");
}

TEST(DiscCommandLineTest, EachCommandHasItsHelp)
{
    const auto help = [](const std::string& command) {
        return std::get<Reply>(ParseDisc({command, "--help"})).text;
    };
    EXPECT_EQ(help("burn"), BurnHelp());
    EXPECT_EQ(help("burn-iso"), IsoBurnHelp());
    EXPECT_EQ(help("erase"), EraseHelp());
}

TEST(DiscCommandLineTest, TheHelpFitsATerminal)
{
    for (std::string_view text : {BurnHelp(), IsoBurnHelp(), EraseHelp()}) {
        while (!text.empty()) {
            const auto line = text.substr(0, text.find('\n'));
            const auto width
                = std::ranges::count_if(line, [](char c) { return (c & 0xC0) != 0x80; });
            EXPECT_LE(width, 80) << line;
            text.remove_prefix(std::min(line.size() + 1, text.size()));
        }
    }
}

} // namespace velmora::terminal
