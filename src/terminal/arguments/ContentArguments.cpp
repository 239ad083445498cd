// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/ContentArguments.h"

#include "terminal/arguments/VolumeNaming.h"
#include "terminal/arguments/Words.h"
#include "terminal/console/FrenchText.h"

#include <array>
#include <charconv>
#include <string_view>
#include <vector>

namespace velmora::terminal {

namespace {

using image::FileSystems;
using image::IsoLevel;

// What only an image can have comes at the end.
constexpr std::array kFileSystems {
    Word<FileSystems> {"iso", {.iso9660 = true, .joliet = false, .udf = false}},
    Word<FileSystems> {"joliet", {.iso9660 = true, .joliet = true, .udf = false}},
    Word<FileSystems> {"udf", {.iso9660 = false, .joliet = false, .udf = true}},
    Word<FileSystems> {"all", {}},
};
constexpr std::array kLevels {
    Word<IsoLevel> {"1", IsoLevel::Level1},
    Word<IsoLevel> {"2", IsoLevel::Level2},
    Word<IsoLevel> {"3", IsoLevel::Level3},
};

constexpr std::array kLinks {
    Word<LinkChoice> {"keep", LinkChoice::Keep},
    Word<LinkChoice> {"follow", LinkChoice::Follow},
};

constexpr std::array kRights {
    Word<image::Rights> {"share", image::Rights::OfEverybody},
    Word<image::Rights> {"keep", image::Rights::OfSource},
};

/// The words that a command takes.
struct Offer {
    std::string_view command;
    std::vector<Word<const Medium*>> media;
    std::span<const Word<FileSystems>> fileSystems;
    std::span<const Word<IsoLevel>> levels;
};

Offer OfferFor(Destination destination)
{
    std::vector<Word<const Medium*>> media;
    for (const Medium& medium : Media()) {
        media.push_back({medium.option, &medium});
    }
    if (destination == Destination::ImageFile) {
        return {"image", std::move(media), kFileSystems, kLevels};
    }
    media.push_back({"detect", nullptr});
    return {"burn",
        std::move(media),
        std::span(kFileSystems).first<kFileSystems.size() - 1>(),
        std::span(kLevels).first<kLevels.size() - 1>()};
}

std::optional<Reply> ReadName(
    std::string_view command, const std::optional<std::string>& typed, std::string& volumeName)
{
    if (!typed) {
        return std::nullopt;
    }
    if (const auto problem = ProblemOfVolumeName(*typed); !problem.empty()) {
        return WrongUsage(problem, command);
    }
    volumeName = *typed;
    return std::nullopt;
}

/// Readers of discs show the names of level 1 differently.
std::optional<Reply> ReadSums(std::string_view command, bool isTyped, ContentRequest& content)
{
    content.recordsSums = isTyped;
    if (isTyped && content.level == IsoLevel::Level1) {
        return WrongUsage("--sums demande que le disque garde les noms : choisissez --level 2"
                + std::string(command == "image" ? " ou 3." : "."),
            command);
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

std::optional<Reply> ReadTime(
    std::string_view command, const char* sourceDateEpoch, ContentRequest& content)
{
    if (!sourceDateEpoch) {
        return std::nullopt;
    }
    content.time = TimeOf(sourceDateEpoch);
    if (content.time) {
        return std::nullopt;
    }
    return WrongUsage("la variable SOURCE_DATE_EPOCH vaut " + Quoted(sourceDateEpoch)
            + " : donnez-lui un nombre de secondes depuis 1970, ou supprimez-la.",
        command);
}

} // namespace

std::optional<Reply> ReadContent(
    const ContentArguments& typed, Destination destination, ContentRequest& content)
{
    const Offer offer = OfferFor(destination);
    content.detail = typed.report ? Detail::Lists : Detail::Counts;
    auto mistake = ReadName(offer.command, typed.name, content.volumeName);
    if (!mistake) {
        mistake = ReadWord(offer.command,
            "--medium",
            typed.medium,
            std::span<const Word<const Medium*>>(offer.media),
            content.medium);
    }
    if (!mistake) {
        mistake = ReadWord(
            offer.command, "--fs", typed.fileSystems, offer.fileSystems, content.fileSystems);
    }
    if (!mistake) {
        mistake = ReadWord(offer.command, "--level", typed.level, offer.levels, content.level);
    }
    if (!mistake) {
        mistake = ReadWord(offer.command,
            "--links",
            typed.links,
            std::span<const Word<LinkChoice>>(kLinks),
            content.links);
    }
    if (!mistake) {
        mistake = ReadSums(offer.command, typed.sums, content);
    }
    if (!mistake) {
        mistake = ReadWord(offer.command,
            "--attributes",
            typed.attributes,
            std::span<const Word<image::Rights>>(kRights),
            content.rights);
    }
    if (!mistake) {
        mistake = ReadTime(offer.command, typed.sourceDateEpoch, content);
    }
    return mistake;
}

} // namespace velmora::terminal
