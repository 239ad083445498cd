// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayTexts.h"

#include "drive/SectorSize.h"
#include "virtual/DiscRules.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace velmora::tray {

using namespace Qt::StringLiterals;
using drive::DiscInfo;
using drive::DiscState;
using virtualdrive::Disc;
using virtualdrive::DriveDescription;
using virtualdrive::FaultKind;

namespace {

QString SizeText(qint64 sectors)
{
    return QLocale(QLocale::French)
        .formattedDataSize(sectors * drive::kSectorBytes, 2, QLocale::DataSizeSIFormat);
}

DiscInfo InfoOf(const Disc& disc, const DriveDescription& drive)
{
    return virtualdrive::InfoOf(disc, drive, disc.sessions.isEmpty());
}

QString BasicState(const DiscInfo& info)
{
    const qsizetype sessions = info.sessions.size();
    switch (info.state) {
    case DiscState::Blank:
        return u"vierge"_s;
    case DiscState::Appendable:
        return sessions > 1 ? u"ouvert, %1 sessions"_s.arg(sessions) : u"ouvert"_s;
    case DiscState::Closed:
        return sessions > 1 ? u"fermé, %1 sessions"_s.arg(sessions) : u"fermé"_s;
    case DiscState::Overwritable:
        return info.heuristicallyBlank ? u"réinscriptible, vide"_s : u"réinscriptible, écrit"_s;
    case DiscState::Unsupported:
        return u"non reconnu par le graveur"_s;
    case DiscState::None:
        break;
    }
    return u"absent"_s;
}

qint64 UsedSectors(const Disc& disc, const DiscInfo& info)
{
    if (info.state != DiscState::Overwritable) {
        return info.totalSectors - info.freeSectors;
    }
    return disc.sessions.isEmpty() ? 0 : disc.sessions.last().sectors;
}

} // namespace

QString FreeName(const virtualdrive::Recorders& recorders)
{
    int number = 1;
    while (recorders.Has(u"graveur-%1"_s.arg(number))) {
        ++number;
    }
    return u"graveur-%1"_s.arg(number);
}

QString TypeText(const Disc& disc) { return disc.medium->name.toString(); }

QString StateText(const Disc& disc, const DriveDescription& drive)
{
    const DiscInfo info = InfoOf(disc, drive);
    QStringList parts {BasicState(info)};
    if (info.damaged) {
        parts.append(u"dernière session inachevée"_s);
    }
    if (disc.writeProtected) {
        parts.append(u"protégé en écriture"_s);
    }
    if (disc.upsideDown) {
        parts.append(u"à l'envers"_s);
    }
    return parts.join(u", "_s);
}

QString SpaceText(const Disc& disc, const DriveDescription& drive)
{
    const DiscInfo info = InfoOf(disc, drive);
    if (info.state == DiscState::Unsupported) {
        return u"Capacité inconnue"_s;
    }
    const qint64 used = UsedSectors(disc, info);
    return u"%1 utilisés, %2 libres"_s.arg(
        SizeText(used), SizeText(std::max<qint64>(0, info.totalSectors - used)));
}

QString FaultText(const virtualdrive::Fault& fault)
{
    const auto at = [&](const QString& text) { return text.arg(fault.sector); };
    QString text;
    switch (fault.kind) {
    case FaultKind::MediumError:
        text = at(u"erreur d'écriture au secteur %1"_s);
        break;
    case FaultKind::LossOfStreaming:
        text = at(u"données trop lentes au secteur %1"_s);
        break;
    case FaultKind::Removed:
        text = at(u"disque retiré au secteur %1"_s);
        break;
    case FaultKind::Unplugged:
        text = at(u"graveur débranché au secteur %1"_s);
        break;
    case FaultKind::ReadError:
        text = at(u"secteur %1 illisible"_s);
        break;
    case FaultKind::NeverReady:
        text = u"disque jamais prêt"_s;
        break;
    case FaultKind::TrayStuck:
        text = u"tiroir qui ne se ferme pas"_s;
        break;
    case FaultKind::EraseFails:
        text = u"effacement refusé"_s;
        break;
    }
    return fault.lasting ? text + u", durable"_s : text;
}

QString ShortText(const QString& name, const virtualdrive::Description& description)
{
    if (description.drive.unplugged) {
        return name + u" : débranché"_s;
    }
    const QString tray = description.trayOpen ? u"tiroir ouvert"_s : u"tiroir fermé"_s;
    if (!description.disc) {
        return u"%1 : %2, vide"_s.arg(name, tray);
    }
    return u"%1 : %2, %3 (%4)"_s.arg(
        name, tray, TypeText(*description.disc), StateText(*description.disc, description.drive));
}

QString LongText(
    const QString& name, const QString& folder, const virtualdrive::Description& description)
{
    const DriveDescription& drive = description.drive;
    QStringList lines {
        u"Graveur : %1 (%2 %3 %4)"_s.arg(name, drive.vendor, drive.product, drive.revision),
        u"Dossier : "_s + folder,
        u"Durées : "_s + (drive.realTiming ? u"réelles"_s : u"aucune attente"_s),
        u"Tiroir : "_s + (description.trayOpen ? u"ouvert"_s : u"fermé"_s)};
    if (drive.unplugged) {
        lines.append(u"Branchement : débranché"_s);
    }
    if (description.disc) {
        const Disc& disc = *description.disc;
        lines.append(u"Disque : %1, %2"_s.arg(TypeText(disc), StateText(disc, drive)));
        lines.append(u"Espace : "_s + SpaceText(disc, drive));
        for (const drive::SessionFacts& session : disc.sessions) {
            lines.append(u"Session : secteurs %1 à %2"_s.arg(session.firstSector)
                             .arg(session.firstSector + session.sectors - 1));
        }
        lines.append(u"Secteurs : %1/%2"_s.arg(folder, disc.sectorFile));
    } else {
        lines.append(u"Disque : aucun"_s);
    }
    for (const virtualdrive::Fault& fault : description.faults) {
        lines.append(u"Panne prévue : "_s + FaultText(fault));
    }
    return lines.join(u'\n');
}

double UsedShare(const Disc& disc, const DriveDescription& drive)
{
    const DiscInfo info = InfoOf(disc, drive);
    if (info.totalSectors == 0) {
        return 0;
    }
    return static_cast<double>(UsedSectors(disc, info)) / static_cast<double>(info.totalSectors);
}

} // namespace velmora::tray
