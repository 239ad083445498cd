// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/ImageArguments.h"

#include "terminal/arguments/Medium.h"
#include "terminal/arguments/VolumeNaming.h"
#include "terminal/console/FrenchText.h"

#include <charconv>
#include <string_view>

namespace velmora::terminal {

namespace {

constexpr std::string_view kCommand = "image";

Reply Refused(const std::string& text) { return WrongUsage(text, kCommand); }

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
std::optional<Reply> ApplyChoices(const ImageArguments& typed, ImageRequest& request)
{
    if (typed.medium) {
        request.medium = FindMedium(*typed.medium);
        if (!request.medium) {
            return NotAmong(kCommand, "--medium", *typed.medium, "cd, dvd, dvd-dl, bd ou bd-dl");
        }
        request.options.fileSystems = request.medium->fileSystems;
        request.options.udfRevision = request.medium->udfRevision;
    }
    if (typed.fileSystems) {
        const auto fileSystems = FileSystemsOf(*typed.fileSystems);
        if (!fileSystems) {
            return NotAmong(kCommand, "--fs", *typed.fileSystems, "iso, joliet, udf ou all");
        }
        request.options.fileSystems = *fileSystems;
    }
    if (typed.level) {
        const auto level = LevelOf(*typed.level);
        if (!level) {
            return NotAmong(kCommand, "--level", *typed.level, "1, 2 ou 3");
        }
        request.options.isoLevel = *level;
        request.options.strict = *level == image::IsoLevel::Level1;
    }
    return std::nullopt;
}

} // namespace

std::variant<ImageRequest, Reply> ImageCommand(
    const ImageArguments& typed, const char* sourceDateEpoch, image::TimeStamp now)
{
    if (typed.folder.empty()) {
        return Refused("il manque le dossier à mettre dans l'image.");
    }
    if (!typed.output || typed.output->empty()) {
        return Refused("il manque le fichier de l'image : ajoutez -o FICHIER.iso.");
    }
    ImageRequest request {.folder = typed.folder, .output = *typed.output};
    if (typed.name) {
        if (const auto problem = ProblemOfVolumeName(*typed.name); !problem.empty()) {
            return Refused(problem);
        }
        request.volumeName = *typed.name;
    }
    request.options.created = now;
    if (sourceDateEpoch) {
        const auto time = TimeOf(sourceDateEpoch);
        if (!time) {
            return Refused("la variable SOURCE_DATE_EPOCH vaut " + Quoted(sourceDateEpoch)
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

} // namespace velmora::terminal
