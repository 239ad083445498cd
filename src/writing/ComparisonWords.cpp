// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ComparisonWords.h"

#include "drive/SectorSize.h"
#include "shell/SizeTexts.h"
#include "text/PathText.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;
using imapi::DiscComparison;
using imapi::HurtPlace;

namespace {

constexpr qsizetype kIndent = 12;

QString SizeOf(qint64 sectors, const QLocale& locale)
{
    return sectors == 0
        ? u"0 octet"_s
        : shell::FormatSizeKo(static_cast<double>(sectors * drive::kSectorBytes), locale);
}

QString PlaceText(const HurtPlace& place)
{
    return place.firstSector == place.lastSector
        ? u"au secteur %1"_s.arg(place.firstSector)
        : u"entre les secteurs %1 et %2"_s.arg(place.firstSector).arg(place.lastSector);
}

QString HeadOf(const DiscComparison& comparison, const QLocale& locale)
{
    const HurtPlace& place = comparison.places.front();
    const QString head = place.isUnreadable
        ? u"Erreur : le disque est illisible "_s
        : u"Erreur : le disque ne contient pas ce qui a été gravé ; première différence "_s;
    const QString more = comparison.places.size() == 1
        ? QString()
        : u" ; %1 endroits abîmés en tout"_s.arg(comparison.places.size());
    return head + PlaceText(place) + u", "_s + SizeOf(comparison.sameSectors, locale)
        + u" identiques avant cela"_s + more + u'.';
}

QStringList FilesOf(const DiscComparison& comparison)
{
    QStringList lines;
    const quint64 unnamed = comparison.hurtFileCount - comparison.hurtFiles.size();
    if (!comparison.hurtFiles.empty()) {
        lines += u"Fichiers abîmés :"_s;
    }
    for (const imapi::HurtFile& file : comparison.hurtFiles) {
        lines += QString(kIndent, u' ') + text::ForTheEye(file.path.Text())
            + u" (à partir de l'octet %1)"_s.arg(file.firstByte);
    }
    if (unnamed > 0) {
        lines += QString(kIndent, u' ')
            + (unnamed == 1 ? u"et un autre fichier"_s : u"et %1 autres fichiers"_s.arg(unnamed));
    }
    return lines;
}

QStringList WordsOfHurt(const DiscComparison& comparison, const QLocale& locale)
{
    QStringList lines {HeadOf(comparison, locale)};
    lines += FilesOf(comparison);
    if (comparison.isCutShort) {
        lines += u"Il y en a trop : la suite du disque n'a pas été comparée."_s;
    }
    const bool isUnreadable = comparison.places.front().isUnreadable;
    lines += isUnreadable ? u"Ne vous fiez pas à ce disque : gravez-en un autre, moins vite."_s
                          : u"Ne vous fiez pas à ce disque : gravez-en un autre."_s;
    return lines;
}

QStringList WordsOfStop(const DiscComparison& comparison, const QLocale& locale)
{
    const QString head = comparison.sameSectors == 0
        ? u"Comparaison arrêtée à votre demande : rien n'a été comparé."_s
        : u"Comparaison arrêtée à votre demande, après %1 sans différence sur %2."_s.arg(
            SizeOf(comparison.sameSectors, locale), SizeOf(comparison.sectors, locale));
    return {head, u"Le disque est gravé en entier, mais rien ne dit qu'il est bon."_s};
}

QStringList WordsOfObstacle(const DiscComparison& comparison, const QLocale& locale)
{
    const QString head = comparison.sameSectors == 0
        ? u"Attention : rien n'a été comparé. "_s
        : u"Attention : rien n'a été comparé après les premiers %1, sans différence. "_s.arg(
            SizeOf(comparison.sameSectors, locale));
    return {head + comparison.cause,
        u"Le disque est gravé en entier, mais rien ne dit qu'il est bon."_s};
}

} // namespace

QStringList WordsOf(const DiscComparison& comparison, const QLocale& locale)
{
    switch (comparison.end) {
    case imapi::ComparisonEnd::Hurt:
        return WordsOfHurt(comparison, locale);
    case imapi::ComparisonEnd::Stopped:
        return WordsOfStop(comparison, locale);
    case imapi::ComparisonEnd::Impossible:
        return WordsOfObstacle(comparison, locale);
    case imapi::ComparisonEnd::NotBegun:
    case imapi::ComparisonEnd::Unwanted:
    case imapi::ComparisonEnd::Same:
        break;
    }
    return {};
}

} // namespace velmora::writing
