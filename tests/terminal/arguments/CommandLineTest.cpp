// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/CommandLine.h"

#include "terminal/arguments/HelpText.h"
#include "tests/terminal/MediumOfOption.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace velmora::terminal {

namespace {

constexpr image::TimeStamp kNow {.seconds = 1'700'000'000, .microseconds = 5};

Command Parse(std::vector<std::string> arguments, const char* sourceDateEpoch = nullptr)
{
    return ParseCommandLine(std::move(arguments), sourceDateEpoch, kNow);
}

ImageRequest Request(std::vector<std::string> arguments)
{
    auto command = Parse(std::move(arguments));
    if (const auto* reply = std::get_if<Reply>(&command)) {
        ADD_FAILURE() << reply->text;
        return {};
    }
    return std::get<ImageRequest>(command);
}

/// The first line of the message about a mistake; empty when there is none.
std::string Mistake(std::vector<std::string> arguments, const char* sourceDateEpoch = nullptr)
{
    const auto command = Parse(std::move(arguments), sourceDateEpoch);
    const auto* reply = std::get_if<Reply>(&command);
    if (!reply || reply->code != ExitCode::WrongUsage) return {};
    return reply->text.substr(0, reply->text.find('\n'));
}

std::string FileSystemsOf(const ImageRequest& request)
{
    const auto& chosen = request.options.fileSystems;
    return std::string(chosen.iso9660 ? "iso " : "") + (chosen.joliet ? "joliet " : "")
        + (chosen.udf ? "udf" : "");
}

} // namespace

TEST(CommandLineTest, AFolderAndAFileAreEnough)
{
    const auto request = Request({"image", "/home/u/Photos", "-o", "p.iso"});
    EXPECT_EQ(request.folder.Bytes(), "/home/u/Photos");
    EXPECT_EQ(request.output.Bytes(), "p.iso");
    EXPECT_EQ(request.volumeName, "");
    EXPECT_EQ(FileSystemsOf(request), "iso joliet udf");
    EXPECT_EQ(request.options.udfRevision, image::UdfRevision::Udf102);
    EXPECT_EQ(request.options.isoLevel, image::IsoLevel::Level3);
    EXPECT_FALSE(request.options.strict);
    EXPECT_EQ(request.medium, nullptr);
    EXPECT_EQ(request.detail, Detail::Counts);
    EXPECT_EQ(request.options.created.seconds, kNow.seconds);
}

TEST(CommandLineTest, TheNameIsTakenInEverySpelling)
{
    EXPECT_EQ(Request({"image", "d", "-o", "i", "-n", "Été"}).volumeName, "Été");
    EXPECT_EQ(Request({"image", "d", "-o", "i", "-N", "Été"}).volumeName, "Été");
    EXPECT_EQ(Request({"image", "--name=Mes photos", "-o", "i", "d"}).volumeName, "Mes photos");
}

TEST(CommandLineTest, PathsMayLookLikeAnything)
{
    EXPECT_EQ(Request({"image", "[a,b]", "-o", "[c,d]"}).folder.Bytes(), "[a,b]");
    EXPECT_EQ(Request({"image", "[a,b]", "-o", "[c,d]"}).output.Bytes(), "[c,d]");
    EXPECT_EQ(Request({"image", "image", "-o", "image"}).folder.Bytes(), "image");
    EXPECT_EQ(Request({"image", "-o", "i", "--", "-o"}).folder.Bytes(), "-o");
    EXPECT_EQ(Request({"image", "caf\xE9 bleu", "-o", "a=b"}).folder.Bytes(), "caf\xE9 bleu");
    EXPECT_EQ(Request({"image", "caf\xE9 bleu", "-o", "a=b"}).output.Bytes(), "a=b");
}

TEST(CommandLineTest, FileSystemsAreChosenByName)
{
    EXPECT_EQ(FileSystemsOf(Request({"image", "d", "-o", "i", "--fs", "iso"})), "iso ");
    EXPECT_EQ(FileSystemsOf(Request({"image", "d", "-o", "i", "--fs", "joliet"})), "iso joliet ");
    EXPECT_EQ(FileSystemsOf(Request({"image", "d", "-o", "i", "--fs", "udf"})), "udf");
    EXPECT_EQ(FileSystemsOf(Request({"image", "d", "-o", "i", "--fs", "all"})), "iso joliet udf");
}

TEST(CommandLineTest, TheMediumChoosesWhatItsReadersExpect)
{
    const auto cd = Request({"image", "d", "-o", "i", "--medium", "cd"});
    EXPECT_EQ(FileSystemsOf(cd), "iso joliet ");
    EXPECT_EQ(cd.medium->sectors, 359847U);
    const auto longCd = Request({"image", "d", "-o", "i", "--medium", "cd-90"});
    EXPECT_EQ(FileSystemsOf(longCd), "iso joliet ");
    EXPECT_EQ(longCd.medium->sectors, 404850U);
    const auto dvd = Request({"image", "d", "-o", "i", "--medium", "dvd"});
    EXPECT_EQ(FileSystemsOf(dvd), "iso joliet udf");
    EXPECT_EQ(dvd.options.udfRevision, image::UdfRevision::Udf102);
    EXPECT_EQ(dvd.medium->sectors, 2295104U);
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--medium", "dvd-dl"}).medium->sectors, 4171712U);
    const auto bd = Request({"image", "d", "-o", "i", "--medium", "bd"});
    EXPECT_EQ(FileSystemsOf(bd), "udf");
    EXPECT_EQ(bd.options.udfRevision, image::UdfRevision::Udf250);
    EXPECT_EQ(bd.medium->sectors, 12219392U);
    EXPECT_EQ(bd.medium->formattedSectors, 11826176U);
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--medium", "bd-dl"}).medium->sectors, 24438784U);
}

TEST(CommandLineTest, TheMediumHasTwoSpellings)
{
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--format", "bd"}).medium, MediumOfOption("bd"));
    EXPECT_EQ(Mistake({"image", "d", "-o", "i", "--format", "detect"}),
        "Erreur : « detect » ne convient pas à --medium : donnez cd, cd-90, dvd, dvd-dl, bd ou "
        "bd-dl.");
}

TEST(CommandLineTest, TheFileSystemsGivenPrevailOverTheMediumAndItsRevision)
{
    for (const auto& order : {std::vector<std::string> {"--fs", "all", "--medium", "bd"},
             std::vector<std::string> {"--medium", "bd", "--fs", "all"}}) {
        std::vector<std::string> arguments {"image", "d", "-o", "i"};
        arguments.insert(arguments.end(), order.begin(), order.end());
        const auto request = Request(arguments);
        EXPECT_EQ(FileSystemsOf(request), "iso joliet udf");
        EXPECT_EQ(image::RevisionOf(request.options), image::UdfRevision::Udf102);
    }
    const auto alone = Request({"image", "d", "-o", "i", "--medium", "bd", "--fs", "udf"});
    EXPECT_EQ(image::RevisionOf(alone.options), image::UdfRevision::Udf250);
}

TEST(CommandLineTest, LevelOneIsStrict)
{
    const auto one = Request({"image", "d", "-o", "i", "--level", "1"});
    EXPECT_EQ(one.options.isoLevel, image::IsoLevel::Level1);
    EXPECT_TRUE(one.options.strict);
    const auto two = Request({"image", "d", "-o", "i", "--level", "2"});
    EXPECT_EQ(two.options.isoLevel, image::IsoLevel::Level2);
    EXPECT_FALSE(two.options.strict);
}

TEST(CommandLineTest, ReportAsksForLists)
{
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--report"}).detail, Detail::Lists);
}

TEST(CommandLineTest, SourceDateEpochSetsTheTime)
{
    const auto command = Parse({"image", "d", "-o", "i"}, "86400");
    EXPECT_EQ(std::get<ImageRequest>(command).options.created.seconds, 86400);
    EXPECT_EQ(std::get<ImageRequest>(command).options.created.microseconds, 0U);
}

TEST(CommandLineTest, SourceDateEpochIsTheLatestTimeOfAnyEntry)
{
    const auto command = Parse({"image", "d", "-o", "i"}, "86400");
    EXPECT_EQ(std::get<ImageRequest>(command).options.latest, (image::TimeStamp {86400, 0}));
    EXPECT_EQ(Request({"image", "d", "-o", "i"}).options.latest, std::nullopt);
}

TEST(CommandLineTest, AttributesAreThoseOfADiscToShareUnlessTheyAreToBeKept)
{
    using image::Rights;
    EXPECT_EQ(Request({"image", "d", "-o", "i"}).options.rights, Rights::OfEverybody);
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--attributes", "share"}).options.rights,
        Rights::OfEverybody);
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--attributes", "keep"}).options.rights,
        Rights::OfSource);
    EXPECT_EQ(Mistake({"image", "d", "-o", "i", "--attributes", "lose"}),
        "Erreur : « lose » ne convient pas à --attributes : donnez share ou keep.");
}

TEST(CommandLineTest, ASourceDateEpochThatIsNoNumberIsAMistake)
{
    for (const char* value : {"", "demain", "12a", "-1", "99999999999999999999"})
        EXPECT_EQ(Mistake({"image", "d", "-o", "i"}, value),
            "Erreur : la variable SOURCE_DATE_EPOCH vaut « " + std::string(value)
                + " » : donnez-lui un nombre de secondes depuis 1970, ou supprimez-la.");
}

TEST(CommandLineTest, OnlyImagesAreReplacedUnlessMoreIsAskedFor)
{
    EXPECT_EQ(Request({"image", "d", "-o", "i"}).replacing, Replacing::Images);
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--replace"}).replacing, Replacing::AnyFile);
}

TEST(CommandLineTest, LinksAreKeptUnlessTheyAreToBeFollowed)
{
    EXPECT_EQ(Request({"image", "d", "-o", "i"}).links, LinkChoice::Keep);
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--links", "keep"}).links, LinkChoice::Keep);
    EXPECT_EQ(Request({"image", "d", "-o", "i", "--links", "follow"}).links, LinkChoice::Follow);
}

TEST(CommandLineTest, SumsNeedNamesThatAllReadersShowAlike)
{
    EXPECT_FALSE(Request({"image", "d", "-o", "i"}).recordsSums);
    EXPECT_TRUE(Request({"image", "d", "-o", "i", "--sums"}).recordsSums);
    EXPECT_EQ(Mistake({"image", "d", "-o", "i", "--sums", "--level", "1"}),
        "Erreur : --sums demande que le disque garde les noms : choisissez --level 2 ou 3.");
}

TEST(CommandLineTest, MistakesAreToldInFrench)
{
    EXPECT_EQ(
        Mistake({"image", "-o", "i"}), "Erreur : il manque le dossier à mettre dans l'image.");
    EXPECT_EQ(Mistake({"image", "d"}),
        "Erreur : il manque le fichier de l'image : ajoutez -o FICHIER.iso.");
    EXPECT_EQ(Mistake({"image", "d", "-o", "i", "--fs", "ntfs"}),
        "Erreur : « ntfs » ne convient pas à --fs : donnez iso, joliet, udf ou all.");
    EXPECT_EQ(Mistake({"image", "d", "-o", "i", "--level", "4"}),
        "Erreur : « 4 » ne convient pas à --level : donnez 1, 2 ou 3.");
    EXPECT_EQ(Mistake({"image", "d", "-o", "i", "--links", "cut"}),
        "Erreur : « cut » ne convient pas à --links : donnez keep ou follow.");
    EXPECT_EQ(Mistake({"image", "d", "-o", "i", "--medium", "zip"}),
        "Erreur : « zip » ne convient pas à --medium : donnez cd, cd-90, dvd, dvd-dl, bd ou "
        "bd-dl.");
    EXPECT_EQ(
        Mistake({"image", "d", "-o", "i", "--vite"}), "Erreur : l'option « --vite » est inconnue.");
    EXPECT_EQ(Mistake({"image", "d", "e", "-o", "i"}),
        "Erreur : « e » est de trop, ou une commande inconnue.");
    EXPECT_EQ(Mistake({"graver"}), "Erreur : « graver » est de trop, ou une commande inconnue.");
    EXPECT_EQ(Mistake({"image", "d", "-o"}),
        "Erreur : l'option « --output » attend une valeur, et une seule.");
    EXPECT_EQ(Mistake({"image", "d", "-o", "a", "-o", "b"}),
        "Erreur : l'option « --output » attend une valeur, et une seule.");
}

TEST(CommandLineTest, AMistakeIsHarmlessToTheTerminal)
{
    EXPECT_EQ(Mistake({"image", "d", "-o", "i", "--fs", "\x1b[2J\xFF"}),
        "Erreur : « ␛[2J\uFFFD » ne convient pas à --fs : donnez iso, joliet, udf ou all.");
}

TEST(CommandLineTest, AVolumeNameHasOneToThirtyTwoCharacters)
{
    EXPECT_EQ(
        Request({"image", "d", "-o", "i", "-n", std::string(32, 'x')}).volumeName.size(), 32U);
    for (const std::string& name : {std::string(33, 'x'), std::string("a\nb"), std::string("\xFF")})
        EXPECT_TRUE(
            Mistake({"image", "d", "-o", "i", "-n", name}).starts_with("Erreur : le nom de volume"))
            << name;
    EXPECT_TRUE(
        Mistake({"image", "d", "-o", "i", "-n", ""}).starts_with("Erreur : le nom de volume"));
}

TEST(CommandLineTest, WithoutACommandTheHelpIsShownAsAMistake)
{
    const auto command = Parse({});
    EXPECT_EQ(std::get<Reply>(command).code, ExitCode::WrongUsage);
    EXPECT_EQ(std::get<Reply>(command).text, GeneralHelp());
}

TEST(CommandLineTest, HelpAndVersionAreNoMistakes)
{
    for (const char* option : {"-h", "--help"}) {
        const auto general = Parse({option});
        EXPECT_EQ(std::get<Reply>(general).code, ExitCode::Done);
        EXPECT_EQ(std::get<Reply>(general).text, GeneralHelp());
        const auto image = Parse({"image", option});
        EXPECT_EQ(std::get<Reply>(image).text, ImageHelp());
        const auto late = Parse({"image", "d", "-o", "i", option});
        EXPECT_EQ(std::get<Reply>(late).text, ImageHelp());
    }
    EXPECT_TRUE(std::get<Reply>(Parse({"--version"})).text.starts_with("velmora-cli "));
}

TEST(CommandLineTest, TheHelpNamesEveryOptionAndFitsATerminal)
{
    const std::string help {ImageHelp()};
    for (const char* option : {"-o",
             "--output",
             "-n",
             "-N",
             "--name",
             "--fs",
             "--level",
             "--medium",
             "--attributes",
             "--report",
             "--help",
             "SOURCE_DATE_EPOCH",
             "130",
             "dvd-dl",
             "bd-dl"})
        EXPECT_NE(help.find(option), std::string::npos) << option;
    for (std::string_view text : {ImageHelp(), GeneralHelp()})
        for (std::size_t at = 0; at < text.size();) {
            const auto line = text.substr(at, text.find('\n', at) - at);
            const auto width = std::count_if(
                line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; });
            EXPECT_LE(width, 79) << line;
            at += line.size() + 1;
        }
}

namespace {

DriveRequest Question(std::vector<std::string> arguments)
{
    const auto command = Parse(std::move(arguments));
    if (const auto* request = std::get_if<DriveRequest>(&command)) {
        return *request;
    }
    ADD_FAILURE() << "no question about the drives";
    return {};
}

} // namespace

TEST(CommandLineTest, RecordersAreListedAsATableOrAsJson)
{
    EXPECT_EQ(Question({"recorders"}).question, DriveQuestion::Recorders);
    EXPECT_EQ(Question({"recorders"}).form, AnswerForm::Table);
    EXPECT_EQ(Question({"recorders", "--json"}).form, AnswerForm::Json);
}

TEST(CommandLineTest, TheDiscOfTheFirstRecorderIsShownUnlessAnotherIsNamed)
{
    EXPECT_EQ(Question({"media"}).question, DriveQuestion::Media);
    EXPECT_EQ(Question({"media"}).recorder, 0U);
    EXPECT_EQ(Question({"media", "--recorder", "3", "--json"}).recorder, 3U);
    EXPECT_EQ(Question({"media", "--recorder=12", "--json"}).form, AnswerForm::Json);
}

TEST(CommandLineTest, ARecorderIsNamedByANumberFromOneOn)
{
    for (const char* number : {"0", "-1", "a", "1a", "4294967296"}) {
        EXPECT_EQ(Mistake({"media", std::string("--recorder=") + number}),
            std::string("Erreur : « ") + number
                + " » ne convient pas à --recorder : donnez un numéro de la liste, à partir de "
                  "1.")
            << number;
    }
}

TEST(CommandLineTest, OptionsOfOneQuestionAreUnknownToTheOther)
{
    EXPECT_EQ(Mistake({"recorders", "--recorder", "1"}),
        "Erreur : l'option « --recorder » est inconnue.");
    EXPECT_EQ(Mistake({"media", "x"}), "Erreur : « x » est de trop, ou une commande inconnue.");
}

TEST(CommandLineTest, EachQuestionHasItsHelp)
{
    const auto help = [](const std::string& command) {
        return std::get<Reply>(Parse({command, "--help"})).text;
    };
    EXPECT_EQ(help("recorders"), RecordersHelp());
    EXPECT_EQ(help("media"), MediaHelp());
    EXPECT_EQ(help("image"), ImageHelp());
}

} // namespace velmora::terminal
