// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscContents.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

/// Shares of one disc.
class Scale {
public:
    explicit Scale(qint64 room)
        : room_(static_cast<double>(room))
    {
    }

    double ShareAt(qint64 sector) const
    {
        return std::clamp(static_cast<double>(sector) / room_, 0.0, 1.0);
    }
    /// Adds a stretch, if there is anything on it.
    void Add(std::vector<DiscStretch>& to, StretchKind kind, qint64 first, qint64 end) const
    {
        if (end > first) {
            to.push_back({.kind = kind, .from = ShareAt(first), .to = ShareAt(end)});
        }
    }

private:
    double room_;
};

/// Rounded down; a little is not called nothing.
QString ShareText(qint64 part, qint64 whole)
{
    constexpr qint64 kHundred = 100;
    const qint64 percent = part * kHundred / whole;
    return part > 0 && percent == 0 ? u"moins de 1\u00A0%"_s : u"%1\u00A0%"_s.arg(percent);
}

QString PlacesText(std::size_t count)
{
    return count == 1 ? u"un endroit abîmé"_s : u"%1 endroits abîmés"_s.arg(count);
}

} // namespace

DiscLook LookOf(drive::DiscFamily family)
{
    switch (family) {
    case drive::DiscFamily::Cd:
        return DiscLook::Cd;
    case drive::DiscFamily::BluRay:
        return DiscLook::BluRay;
    case drive::DiscFamily::None:
    case drive::DiscFamily::Dvd:
    case drive::DiscFamily::HdDvd:
        break;
    }
    return DiscLook::Dvd;
}

std::vector<DiscStretch> StretchesOf(const DiscContents& contents)
{
    std::vector<DiscStretch> stretches;
    if (contents.roomSectors <= 0) {
        return stretches;
    }
    const Scale scale(contents.roomSectors);
    const qint64 start = contents.earlierSectors;
    const qint64 end = start + contents.plannedSectors;
    scale.Add(stretches,
        end > contents.roomSectors ? StretchKind::TooMuch : StretchKind::Planned,
        start,
        end);
    scale.Add(stretches, StretchKind::Earlier, 0, start);
    scale.Add(stretches, StretchKind::Written, start, start + contents.writtenSectors);
    scale.Add(stretches, StretchKind::Compared, start, start + contents.comparedSectors);
    for (const imapi::HurtPlace& place : contents.hurtPlaces) {
        scale.Add(stretches, StretchKind::Hurt, place.firstSector, place.lastSector + 1);
    }
    return stretches;
}

double RadiusAt(double share, double inner, double outer)
{
    return std::sqrt(inner * inner + share * (outer * outer - inner * inner));
}

QString WordsOf(const DiscContents& contents)
{
    const qint64 room = contents.roomSectors;
    if (room <= 0) {
        return u"Rien n'est encore connu du disque."_s;
    }
    if (contents.earlierSectors + contents.plannedSectors > room) {
        return u"Le projet dépasse la place du disque."_s;
    }
    QStringList parts;
    if (contents.earlierSectors > 0) {
        parts += u"déjà occupé à %1"_s.arg(ShareText(contents.earlierSectors, room));
    }
    if (contents.writtenSectors > 0) {
        parts += u"gravé à %1"_s.arg(ShareText(contents.writtenSectors, room));
    } else {
        parts += u"le projet en prend %1"_s.arg(ShareText(contents.plannedSectors, room));
    }
    if (contents.comparedSectors > 0) {
        parts += u"vérifié à %1"_s.arg(ShareText(contents.comparedSectors, room));
    }
    if (!contents.hurtPlaces.empty()) {
        parts += PlacesText(contents.hurtPlaces.size());
    }
    return u"Place du disque : "_s + parts.join(", "_L1) + u'.';
}

} // namespace velmora::wizard
