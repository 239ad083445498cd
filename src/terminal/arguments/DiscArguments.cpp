// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/DiscArguments.h"

#include <charconv>

namespace velmora::terminal {

namespace {

constexpr std::string_view kBurn = "burn";

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

std::optional<Reply> ReadCopies(
    std::string_view command, const DiscArguments& typed, std::uint32_t& copies)
{
    constexpr std::uint32_t kFewest = 2;
    constexpr std::uint32_t kMost = 99;
    if (!typed.copies) {
        return std::nullopt;
    }
    copies = NumberOf(*typed.copies).value_or(0);
    return copies < kFewest || copies > kMost
        ? std::optional(NotAmong(command, "--copies", *typed.copies, "un nombre de 2 à 99"))
        : std::nullopt;
}

std::optional<Reply> ReadTerms(
    std::string_view command, const DiscArguments& typed, DiscTerms& terms)
{
    if (auto mistake = ReadCopies(command, typed, terms.copies)) {
        return mistake;
    }
    terms.assent = typed.yes ? Assent::Given : Assent::Asked;
    terms.comparesAfterwards = !typed.noCompare;
    return ReadRecorder(command, typed, terms.recorder);
}

/// What the run offers for its disc: the disc in the drive decides for itself, a Blu-ray has only
/// UDF, and the rules of ISO 9660 are a choice only if it is the only file system of a CD.
std::optional<Reply> CheckOffered(const ContentRequest& content)
{
    const auto& fileSystems = content.fileSystems;
    if (fileSystems && content.medium == nullptr) {
        return WrongUsage("--fs demande de dire le disque : ajoutez --medium cd, cd-90, dvd, "
                          "dvd-dl, bd ou bd-dl.",
            kBurn);
    }
    if (fileSystems && fileSystems->iso9660 && IsBluRay(*content.medium)) {
        return WrongUsage("un Blu-ray reçoit le système de fichiers UDF : retirez --fs.", kBurn);
    }
    const bool isPlainCd = fileSystems && fileSystems->iso9660 && !fileSystems->joliet
        && content.medium->kind == MediumKind::Cd;
    if (content.level && !isPlainCd) {
        return WrongUsage(
            "--level ne vaut, pour une gravure, que sur un CD en ISO 9660 seul : ajoutez --medium "
            "cd --fs iso.",
            kBurn);
    }
    return std::nullopt;
}

std::optional<Reply> ReadSpeed(const DiscArguments& typed, std::optional<std::uint32_t>& speed)
{
    if (!typed.speed) {
        return std::nullopt;
    }
    speed = SpeedOf(*typed.speed);
    if (!speed) {
        return NotAmong(kBurn, "--speed", *typed.speed, "un multiple entier, de 1 à 99");
    }
    return std::nullopt;
}

} // namespace

std::variant<BurnRequest, Reply> BurnCommand(
    const ContentArguments& content, const DiscArguments& typed)
{
    if (content.folder.empty()) {
        return WrongUsage("il manque le dossier à graver.", kBurn);
    }
    BurnRequest request {.folder = text::NativePath(content.folder), .closesDisc = typed.close};
    auto mistake = ReadContent(content, Destination::Disc, request.content);
    if (!mistake) {
        mistake = ReadSpeed(typed, request.speed);
    }
    if (!mistake) {
        mistake = CheckOffered(request.content);
    }
    if (!mistake) {
        mistake = ReadTerms(kBurn, typed, request.terms);
    }
    if (mistake) {
        return *mistake;
    }
    return request;
}

std::variant<IsoBurnRequest, Reply> IsoBurnCommand(const DiscArguments& typed)
{
    constexpr std::string_view kCommand = "burn-iso";
    if (typed.image.empty()) {
        return WrongUsage("il manque l'image à graver.", kCommand);
    }
    IsoBurnRequest request {.file = text::NativePath(typed.image), .isRaw = typed.raw};
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
    if (const auto mistake = ReadRecorder(
            question == DriveQuestion::Report ? "report" : "media", typed, request.recorder)) {
        return *mistake;
    }
    return request;
}

} // namespace velmora::terminal
