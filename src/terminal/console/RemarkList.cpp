// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/RemarkList.h"

namespace velmora::terminal {

namespace {

std::string Heading(RemarkKind kind, Product product)
{
    const bool isDisc = product == Product::Disc;
    switch (kind) {
    case RemarkKind::ChangedName:
        return "Noms modifiés";
    case RemarkKind::NameHazard:
        return "Noms que certains lecteurs perdent";
    case RemarkKind::LinkLeadingOut:
        return std::string("Liens qui mènent hors ") + (isDisc ? "du disque" : "de l'image");
    case RemarkKind::ChangedSource:
        return "Fichiers modifiés pendant la lecture, enregistrés tels qu'ils ont été lus";
    case RemarkKind::LeftOut:
        return std::string("Éléments absents ") + (isDisc ? "du disque" : "de l'image");
    default:
        break;
    }
    return "Éléments absents d'un système de fichiers";
}

/// Whether it is worth a line to say that there are none: it is for an image, whose users look for
/// it.
bool TellsNone(RemarkKind kind, Product product)
{
    return product == Product::Image
        && (kind == RemarkKind::ChangedName || kind == RemarkKind::LeftOut);
}

} // namespace

void RemarkList::ShowCount(RemarkKind kind, std::size_t count)
{
    hasRemarks_ = hasRemarks_ || count > 0;
    if (count > 0 || TellsNone(kind, product_)) {
        screen_.Result(Heading(kind, product_) + " : " + NumberText(count));
    }
}

void RemarkList::ShowOne(const JobRemark& remark)
{
    screen_.Tell(remark);
    if (detail_ == Detail::Lists) {
        // The text about changed files comes above their list.
        const bool isPath = remark.kind == RemarkKind::ChangedSource;
        screen_.Result("  " + (isPath ? HarmlessText(remark.path) : remark.text));
    }
}

void RemarkList::End()
{
    if (hasRemarks_ && detail_ == Detail::Counts) {
        screen_.Result("La liste s'obtient avec l'option --report.");
    }
}

JobRemark ChangedNameRemark(
    std::string_view fileSystem, std::string_view path, std::string_view recorded)
{
    return {.kind = RemarkKind::ChangedName,
        .path = std::string(path),
        .fileSystem = std::string(fileSystem),
        .recorded = std::string(recorded),
        .text
        = std::string(fileSystem) + " : " + HarmlessText(path) + " -> " + HarmlessText(recorded)};
}

JobRemark LinkRemark(std::string_view path, std::string_view target)
{
    return {.kind = RemarkKind::LinkLeadingOut,
        .path = std::string(path),
        .target = std::string(target),
        .text = HarmlessText(path) + " -> " + HarmlessText(target)
            + (target.starts_with('/') ? " (chemin absolu)" : "")};
}

JobRemark ChangedSourceRemark(std::string_view path)
{
    return {.kind = RemarkKind::ChangedSource,
        .path = std::string(path),
        .text = Quoted(path) + " : Modifié pendant la lecture, enregistré tel qu'il a été lu."};
}

JobRemark EntryRemark(RemarkKind kind, std::string_view path, std::string_view sentence)
{
    return {.kind = kind,
        .path = std::string(path),
        .text = Quoted(path) + " : " + HarmlessText(sentence)};
}

} // namespace velmora::terminal
