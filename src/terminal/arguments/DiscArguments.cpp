// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/DiscArguments.h"

#include "terminal/arguments/VolumeNaming.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace velmora::terminal {

namespace {

constexpr std::string_view kBurn = "burn";

template <class Value> struct Word {
    std::string_view word;
    Value value;
};

constexpr std::array kDiscs {
    Word<DiscChoice> {"detect", DiscChoice::Detected},
    Word<DiscChoice> {"bd", DiscChoice::BluRay},
    Word<DiscChoice> {"dvd", DiscChoice::Dvd},
    Word<DiscChoice> {"dvd-dl", DiscChoice::DvdDualLayer},
    Word<DiscChoice> {"cd", DiscChoice::Cd},
};
constexpr std::array kFileSystems {
    Word<FileSystemChoice> {"iso", FileSystemChoice::Iso9660},
    Word<FileSystemChoice> {"joliet", FileSystemChoice::Joliet},
    Word<FileSystemChoice> {"udf", FileSystemChoice::Udf},
};

template <class Words>
auto Find(const Words& words, std::string_view typed) -> std::optional<decltype(words[0].value)>
{
    const auto found = std::ranges::find_if(words, [&](const auto& w) { return w.word == typed; });
    if (found == words.end()) {
        return std::nullopt;
    }
    return found->value;
}

/// A whole number above 0.
std::optional<std::uint32_t> NumberOf(std::string_view value)
{
    std::uint32_t number = 0;
    const char* end = value.data() + value.size();
    const auto [stopped, failure] = std::from_chars(value.data(), end, number);
    if (failure != std::errc {} || stopped != end || number == 0) {
        return std::nullopt;
    }
    return number;
}

/// "16", "16x"
std::optional<std::uint32_t> SpeedOf(std::string_view value)
{
    constexpr std::uint32_t kFastestEver = 99;
    const auto speed = NumberOf(value.ends_with('x') ? value.substr(0, value.size() - 1) : value);
    return speed && *speed <= kFastestEver ? speed : std::nullopt;
}

std::optional<Reply> ReadRecorder(
    std::string_view command, const DiscArguments& typed, std::uint32_t& recorder)
{
    if (!typed.recorder) {
        return std::nullopt;
    }
    const auto number = NumberOf(*typed.recorder);
    if (!number) {
        return NotAmong(
            command, "--recorder", *typed.recorder, "un numéro de la liste, à partir de 1");
    }
    recorder = *number;
    return std::nullopt;
}

std::optional<Reply> ReadTerms(
    std::string_view command, const DiscArguments& typed, DiscTerms& terms)
{
    terms.assent = typed.yes ? Assent::Given : Assent::Asked;
    terms.comparesAfterwards = !typed.noVerify;
    return ReadRecorder(command, typed, terms.recorder);
}

/// The disc that is in the drive decides for its file systems, and a Blu-ray has one alone.
std::optional<Reply> CheckFileSystem(const BurnRequest& request)
{
    if (request.fileSystem && request.disc == DiscChoice::Detected) {
        return WrongUsage(
            "--fs demande de dire le disque : ajoutez --format bd, dvd, dvd-dl ou cd.", kBurn);
    }
    if (request.disc == DiscChoice::BluRay
        && request.fileSystem.value_or(FileSystemChoice::Udf) != FileSystemChoice::Udf) {
        return WrongUsage("un Blu-ray reçoit le système de fichiers UDF : retirez --fs.", kBurn);
    }
    return std::nullopt;
}

std::optional<Reply> ReadChoices(const DiscArguments& typed, BurnRequest& request)
{
    if (typed.format) {
        const auto disc = Find(kDiscs, *typed.format);
        if (!disc) {
            return NotAmong(kBurn, "--format", *typed.format, "bd, dvd, dvd-dl, cd ou detect");
        }
        request.disc = *disc;
    }
    if (typed.fileSystem) {
        request.fileSystem = Find(kFileSystems, *typed.fileSystem);
        if (!request.fileSystem) {
            return NotAmong(kBurn, "--fs", *typed.fileSystem, "iso, joliet ou udf");
        }
    }
    if (typed.speed) {
        request.speed = SpeedOf(*typed.speed);
        if (!request.speed) {
            return NotAmong(kBurn, "--speed", *typed.speed, "un multiple entier, de 1 à 99");
        }
    }
    return CheckFileSystem(request);
}

} // namespace

std::variant<BurnRequest, Reply> BurnCommand(const DiscArguments& typed)
{
    if (typed.source.empty()) {
        return WrongUsage("il manque le dossier à graver.", kBurn);
    }
    BurnRequest request {.folder = typed.source, .closesDisc = typed.close};
    if (typed.name) {
        if (const auto problem = ProblemOfVolumeName(*typed.name); !problem.empty()) {
            return WrongUsage(problem, kBurn);
        }
        request.volumeName = *typed.name;
    }
    if (const auto mistake = ReadChoices(typed, request)) {
        return *mistake;
    }
    if (const auto mistake = ReadTerms(kBurn, typed, request.terms)) {
        return *mistake;
    }
    return request;
}

std::variant<IsoBurnRequest, Reply> IsoBurnCommand(const DiscArguments& typed)
{
    constexpr std::string_view kCommand = "burn-iso";
    if (typed.source.empty()) {
        return WrongUsage("il manque l'image à graver.", kCommand);
    }
    IsoBurnRequest request {.file = typed.source};
    if (const auto mistake = ReadTerms(kCommand, typed, request.terms)) {
        return *mistake;
    }
    return request;
}

std::variant<EraseRequest, Reply> EraseCommand(const DiscArguments& typed)
{
    EraseRequest request {.isFull = typed.full};
    if (const auto mistake = ReadTerms("erase", typed, request.terms)) {
        return *mistake;
    }
    return request;
}

std::variant<DriveRequest, Reply> DriveCommand(DriveQuestion question, const DiscArguments& typed)
{
    DriveRequest request {.question = question};
    request.form = typed.json ? AnswerForm::Json : AnswerForm::Table;
    if (const auto mistake = ReadRecorder("media", typed, request.recorder)) {
        return *mistake;
    }
    return request;
}

} // namespace velmora::terminal
