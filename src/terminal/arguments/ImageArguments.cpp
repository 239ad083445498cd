// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/ImageArguments.h"

#include "terminal/console/FrenchText.h"

#include <charconv>
#include <string_view>

namespace velmora::terminal {

namespace {

constexpr std::string_view kCommand = "image";

Reply Refused(const std::string& text) { return WrongUsage(text, kCommand); }

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

/// What is chosen prevails over what the readers of the medium expect.
void Apply(const ContentRequest& content, ImageRequest& request)
{
    request.volumeName = content.volumeName;
    request.medium = content.medium;
    request.links = content.links;
    request.recordsSums = content.recordsSums;
    request.detail = content.detail;
    image::ImageOptions& options = request.options;
    if (content.medium) {
        options.fileSystems = content.medium->fileSystems;
        options.udfRevision = content.medium->udfRevision;
    }
    options.fileSystems = content.fileSystems.value_or(options.fileSystems);
    options.isoLevel = content.level.value_or(options.isoLevel);
    options.strict = content.level == image::IsoLevel::Level1;
    options.rights = content.rights;
}

/// The time that an image is to bear, as builds that can be repeated ask for it: entries keep
/// theirs unless they are newer.
std::optional<Reply> ReadTime(const char* sourceDateEpoch, image::ImageOptions& options)
{
    if (!sourceDateEpoch) {
        return std::nullopt;
    }
    const auto given = TimeOf(sourceDateEpoch);
    if (!given) {
        return Refused("la variable SOURCE_DATE_EPOCH vaut " + Quoted(sourceDateEpoch)
            + " : donnez-lui un nombre de secondes depuis 1970, ou supprimez-la.");
    }
    options.created = *given;
    options.latest = *given;
    return std::nullopt;
}

} // namespace

std::variant<ImageRequest, Reply> ImageCommand(const ContentArguments& content,
    const ImageArguments& typed,
    const char* sourceDateEpoch,
    image::TimeStamp now)
{
    if (content.folder.empty()) {
        return Refused("il manque le dossier à mettre dans l'image.");
    }
    if (!typed.output || typed.output->empty()) {
        return Refused("il manque le fichier de l'image : ajoutez -o FICHIER.iso.");
    }
    ImageRequest request {.folder = content.folder, .output = *typed.output};
    request.replacing = typed.replace ? Replacing::AnyFile : Replacing::Images;
    request.options.created = now;
    ContentRequest chosen;
    auto mistake = ReadContent(content, Destination::ImageFile, chosen);
    if (!mistake) {
        mistake = ReadTime(sourceDateEpoch, request.options);
    }
    if (mistake) {
        return *mistake;
    }
    Apply(chosen, request);
    return request;
}

} // namespace velmora::terminal
