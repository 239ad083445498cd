// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/RemarkList.h"

namespace velmora::terminal {

namespace {

std::string Heading(Remark sort, Product product)
{
    const bool isDisc = product == Product::Disc;
    switch (sort) {
    case Remark::ChangedName:
        return "Noms modifiés";
    case Remark::NameHazard:
        return "Noms que certains lecteurs perdent";
    case Remark::LinkLeadingOut:
        return std::string("Liens qui mènent hors ") + (isDisc ? "du disque" : "de l'image");
    case Remark::ChangedSource:
        return "Fichiers modifiés pendant la lecture, enregistrés tels qu'ils ont été lus";
    case Remark::Missing:
        return std::string("Éléments absents ") + (isDisc ? "du disque" : "de l'image");
    case Remark::PartlyMissing:
        break;
    }
    return "Éléments absents d'un système de fichiers";
}

/// Whether that there are none is worth a line of its own: so it is of an image, whose makers look
/// for it.
bool TellsNone(Remark sort, Product product)
{
    return product == Product::Image && (sort == Remark::ChangedName || sort == Remark::Missing);
}

} // namespace

void RemarkList::ShowCount(Remark sort, std::size_t count)
{
    hasRemarks_ = hasRemarks_ || count > 0;
    if (count > 0 || TellsNone(sort, product_)) {
        screen_.Result(Heading(sort, product_) + " : " + NumberText(count));
    }
}

void RemarkList::End()
{
    if (hasRemarks_ && detail_ == Detail::Counts) {
        screen_.Result("La liste s'obtient avec l'option --report.");
    }
}

std::string ChangedNameLine(
    std::string_view fileSystem, std::string_view path, std::string_view recorded)
{
    return std::string(fileSystem) + " : " + HarmlessText(path) + " -> " + HarmlessText(recorded);
}

std::string LinkLine(std::string_view path, std::string_view text)
{
    return HarmlessText(path) + " -> " + HarmlessText(text)
        + (text.starts_with('/') ? " (chemin absolu)" : "");
}

std::string EntryLine(std::string_view path, std::string_view sentence)
{
    return Quoted(path) + " : " + HarmlessText(sentence);
}

} // namespace velmora::terminal
