// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandLine.h"

#include "FrenchText.h"
#include "HelpText.h"
#include "Medium.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include <CLI/CLI.hpp>

namespace velmora::terminal {

namespace {

/// The options of "image" as they were typed.
struct ImageArguments {
    std::string folder;
    std::optional<std::string> output;
    std::optional<std::string> name;
    std::optional<std::string> fileSystems;
    std::optional<std::string> level;
    std::optional<std::string> medium;
    bool report = false;
};

/// The options of "recorders" and of "media" as they were typed.
struct DriveArguments {
    std::optional<std::string> recorder;
    bool json = false;
};

Answer Mistake(const std::string& text, std::string_view command = {})
{
    std::string help = "velmora-cli";
    if (!command.empty()) {
        help.append(" ").append(command);
    }
    return {ExitCode::WrongUsage,
        "Erreur : " + text + "\nL'aide s'obtient par « " + help + " --help »."};
}

Answer ImageMistake(const std::string& text) { return Mistake(text, "image"); }

Answer NotAmong(std::string_view option, const std::string& value, std::string_view choices)
{
    return ImageMistake(Quoted(value) + " ne convient pas à " + std::string(option) + " : donnez "
        + std::string(choices) + ".");
}

std::optional<image::FileSystems> FileSystemsOf(std::string_view value)
{
    if (value == "iso") {
        return image::FileSystems {.iso9660 = true, .joliet = false, .udf = false};
    }
    if (value == "joliet") {
        return image::FileSystems {.iso9660 = true, .joliet = true, .udf = false};
    }
    if (value == "udf") {
        return image::FileSystems {.iso9660 = false, .joliet = false, .udf = true};
    }
    if (value == "all") {
        return image::FileSystems {};
    }
    return std::nullopt;
}

std::optional<image::IsoLevel> LevelOf(std::string_view value)
{
    if (value == "1") {
        return image::IsoLevel::Level1;
    }
    if (value == "2") {
        return image::IsoLevel::Level2;
    }
    if (value == "3") {
        return image::IsoLevel::Level3;
    }
    return std::nullopt;
}

std::optional<image::TimeStamp> TimeOf(std::string_view sourceDateEpoch)
{
    image::TimeStamp time {};
    const char* end = sourceDateEpoch.data() + sourceDateEpoch.size();
    const auto [stopped, failure] = std::from_chars(sourceDateEpoch.data(), end, time.seconds);
    if (failure != std::errc {} || stopped != end || time.seconds < 0) {
        return std::nullopt;
    }
    return time;
}

/// Fills in the choices that have a fixed set of values.
std::optional<Answer> ApplyChoices(const ImageArguments& typed, ImageRequest& request)
{
    if (typed.medium) {
        request.medium = FindMedium(*typed.medium);
        if (!request.medium) {
            return NotAmong("--medium", *typed.medium, "cd, dvd, dvd-dl, bd ou bd-dl");
        }
        request.options.fileSystems = request.medium->fileSystems;
        request.options.udfRevision = request.medium->udfRevision;
    }
    if (typed.fileSystems) {
        const auto fileSystems = FileSystemsOf(*typed.fileSystems);
        if (!fileSystems) {
            return NotAmong("--fs", *typed.fileSystems, "iso, joliet, udf ou all");
        }
        request.options.fileSystems = *fileSystems;
    }
    if (typed.level) {
        const auto level = LevelOf(*typed.level);
        if (!level) {
            return NotAmong("--level", *typed.level, "1, 2 ou 3");
        }
        request.options.isoLevel = *level;
        request.options.strict = *level == image::IsoLevel::Level1;
    }
    return std::nullopt;
}

Command ImageCommand(const ImageArguments& typed, const char* sourceDateEpoch, image::TimeStamp now)
{
    if (typed.folder.empty()) {
        return ImageMistake("il manque le dossier à mettre dans l'image.");
    }
    if (!typed.output || typed.output->empty()) {
        return ImageMistake("il manque le fichier de l'image : ajoutez -o FICHIER.iso.");
    }
    ImageRequest request {.folder = typed.folder, .output = *typed.output};
    if (typed.name) {
        if (!image::IsVolumeName(*typed.name)) {
            return ImageMistake("le nom de volume " + Quoted(*typed.name)
                + " ne convient pas : donnez 1 à 32 caractères, sans caractère de contrôle.");
        }
        request.volumeName = *typed.name;
    }
    request.options.created = now;
    if (sourceDateEpoch) {
        const auto time = TimeOf(sourceDateEpoch);
        if (!time) {
            return ImageMistake("la variable SOURCE_DATE_EPOCH vaut " + Quoted(sourceDateEpoch)
                + " : donnez-lui un nombre de secondes depuis 1970, ou supprimez-la.");
        }
        request.options.created = *time;
    }
    if (const auto mistake = ApplyChoices(typed, request)) {
        return *mistake;
    }
    request.detail = typed.report ? Detail::Lists : Detail::Counts;
    return request;
}

std::optional<std::uint32_t> RecorderNumberOf(std::string_view value)
{
    std::uint32_t number = 0;
    const char* end = value.data() + value.size();
    const auto [stopped, failure] = std::from_chars(value.data(), end, number);
    if (failure != std::errc {} || stopped != end || number == 0) {
        return std::nullopt;
    }
    return number;
}

Command DriveCommand(DriveQuestion question, const DriveArguments& typed)
{
    DriveRequest request {.question = question};
    request.form = typed.json ? AnswerForm::Json : AnswerForm::Table;
    if (typed.recorder) {
        const auto number = RecorderNumberOf(*typed.recorder);
        if (!number) {
            return Mistake(Quoted(*typed.recorder)
                    + " ne convient pas à --recorder : donnez un numéro de la liste, à partir de "
                      "1.",
                "media");
        }
        request.recorder = *number;
    }
    return request;
}

void DeclareCommand(CLI::App& command)
{
    command.allow_extras();
    command.set_help_flag("-h,--help");
}

void DeclareImage(CLI::App& command, ImageArguments& typed)
{
    DeclareCommand(command);
    command.add_option("folder", typed.folder);
    command.add_option("-o,--output", typed.output);
    command.add_option("-n,-N,--name", typed.name);
    command.add_option("--fs", typed.fileSystems);
    command.add_option("--level", typed.level);
    command.add_option("--medium", typed.medium);
    command.add_flag("--report", typed.report);
}

Answer Unexpected(const CLI::App& app)
{
    const std::string first = app.remaining(true).front();
    if (first.size() > 1 && first.front() == '-') {
        return Mistake("l'option " + Quoted(first) + " est inconnue.");
    }
    return Mistake(Quoted(first) + " est de trop, ou une commande inconnue.");
}

/// A mistake that the parser itself found; its text begins with the option's name.
Answer Misread(const CLI::ParseError& error)
{
    const std::string text = error.what();
    return Mistake(
        "l'option " + Quoted(text.substr(0, text.find(':'))) + " attend une valeur, et une seule.");
}

/// The parser with its commands, and what was typed.
struct Grammar {
    Grammar()
    {
        DeclareCommand(app);
        version = app.add_flag("--version");
        image = app.add_subcommand("image");
        DeclareImage(*image, imageArguments);
        recorders = app.add_subcommand("recorders");
        media = app.add_subcommand("media");
        for (CLI::App* command : {recorders, media}) {
            DeclareCommand(*command);
            command->add_flag("--json", driveArguments.json);
        }
        media->add_option("--recorder", driveArguments.recorder);
    }

    std::string_view Help() const
    {
        if (*image) {
            return ImageHelp();
        }
        if (*recorders) {
            return RecordersHelp();
        }
        return *media ? MediaHelp() : GeneralHelp();
    }

    CLI::App app;
    CLI::Option* version;
    CLI::App* image;
    CLI::App* recorders;
    CLI::App* media;
    ImageArguments imageArguments;
    DriveArguments driveArguments;
};

} // namespace

Command ParseCommandLine(
    std::vector<std::string> arguments, const char* sourceDateEpoch, image::TimeStamp now)
{
    Grammar grammar;
    try {
        std::reverse(arguments.begin(), arguments.end()); // as the parser takes a vector
        grammar.app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return Answer {ExitCode::Done, std::string(grammar.Help())};
    } catch (const CLI::ParseError& error) {
        return Misread(error);
    }
    if (grammar.app.remaining_size(true) > 0) {
        return Unexpected(grammar.app);
    }
    if (*grammar.version) {
        return Answer {ExitCode::Done, "velmora-cli " VELMORA_VERSION};
    }
    if (*grammar.recorders) {
        return DriveCommand(DriveQuestion::Recorders, grammar.driveArguments);
    }
    if (*grammar.media) {
        return DriveCommand(DriveQuestion::Media, grammar.driveArguments);
    }
    if (!*grammar.image) {
        return Answer {ExitCode::WrongUsage, std::string(GeneralHelp())};
    }
    return ImageCommand(grammar.imageArguments, sourceDateEpoch, now);
}

} // namespace velmora::terminal
