// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/ImageArguments.h"

#include <string_view>

namespace velmora::terminal {

namespace {

constexpr std::string_view kCommand = "image";

Reply Refused(const std::string& text) { return WrongUsage(text, kCommand); }

/// Explicit choices prevail over what the readers of the medium expect.
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
    options.latest = content.time;
}

} // namespace

std::variant<ImageRequest, Reply> ImageCommand(
    const ContentArguments& content, const ImageArguments& typed, image::TimeStamp now)
{
    if (content.folder.empty()) {
        return Refused("il manque le dossier à mettre dans l'image.");
    }
    if (!typed.output || typed.output->empty()) {
        return Refused("il manque le fichier de l'image : ajoutez -o FICHIER.iso.");
    }
    ImageRequest request {
        .folder = text::NativePath(content.folder), .output = text::NativePath(*typed.output)};
    request.replacing = typed.replace ? Replacing::AnyFile : Replacing::Images;
    ContentRequest chosen;
    if (const auto mistake = ReadContent(content, Destination::ImageFile, chosen)) {
        return *mistake;
    }
    Apply(chosen, request);
    request.options.created = chosen.time.value_or(now);
    return request;
}

} // namespace velmora::terminal
