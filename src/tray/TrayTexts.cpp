// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayTexts.h"

#include "drive/SectorSize.h"
#include "runtime/ResumeNext.h"
#include "unicode/HarmlessText.h"
#include "virtual/DiscLook.h"
#include "virtual/DiscRules.h"

#include <QFile>
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

/// Two decimals, as the sizes of discs are written on their packages.
QString SizeOfSectors(qint64 sectors)
{
    return QLocale(QLocale::French)
        .formattedDataSize(sectors * drive::kSectorBytes, 2, QLocale::DataSizeSIFormat);
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

qint64 UsedSectors(const SeenDisc& seen)
{
    if (seen.info.state != DiscState::Overwritable) {
        return seen.info.totalSectors - seen.info.freeSectors;
    }
    return seen.disc.sessions.isEmpty() ? 0 : seen.disc.sessions.last().sectors;
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

SeenDisc SeeDisc(
    const virtualdrive::RecorderFolder& folder, const virtualdrive::Description& description)
{
    const Disc& disc = *description.disc;
    SeenDisc seen {.disc = disc, .info = virtualdrive::InfoOf(disc, description.drive, false)};
    try {
        seen.info = virtualdrive::LookAtDisc(folder, disc, description.drive);
    } catch (const runtime::RuntimeError&) {
        seen.isReadable = false;
    }
    return seen;
}

QString TypeText(const SeenDisc& seen) { return seen.disc.medium->name.toString(); }

QString StateText(const SeenDisc& seen)
{
    QStringList parts {BasicState(seen.info)};
    if (!seen.isReadable) {
        parts.append(u"secteurs illisibles"_s);
    }
    if (seen.info.damaged) {
        parts.append(u"dernière session inachevée"_s);
    }
    if (seen.disc.writeProtected) {
        parts.append(u"protégé en écriture"_s);
    }
    if (seen.disc.upsideDown) {
        parts.append(u"à l'envers"_s);
    }
    return parts.join(u", "_s);
}

QString SpaceText(const SeenDisc& seen)
{
    if (seen.info.state == DiscState::Unsupported) {
        return u"Capacité inconnue"_s;
    }
    const qint64 used = UsedSectors(seen);
    return u"%1 utilisés, %2 libres"_s.arg(
        SizeOfSectors(used), SizeOfSectors(std::max<qint64>(0, seen.info.totalSectors - used)));
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
    case FaultKind::Altered:
        text = at(u"octet faux au secteur %1"_s);
        break;
    case FaultKind::Swallowed:
        text = at(u"secteur %1 jamais écrit"_s);
        break;
    case FaultKind::SlowRead:
        text = at(u"secteur %1 lisible au ralenti seulement"_s);
        break;
    case FaultKind::Swapped:
        text = at(u"disque échangé à la lecture du secteur %1"_s);
        break;
    case FaultKind::GoneAtRead:
        text = at(u"graveur débranché à la lecture du secteur %1"_s);
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

QString FaultsText(const QList<virtualdrive::Fault>& faults)
{
    QStringList texts;
    for (const virtualdrive::Fault& fault : faults) {
        texts.append(FaultText(fault));
    }
    if (texts.size() < 2) {
        return texts.isEmpty() ? QString() : u"Panne prévue : "_s + texts.first();
    }
    return u"Pannes prévues : "_s + texts.join(u" ; "_s);
}

QString ShortText(
    const virtualdrive::RecorderFolder& folder, const virtualdrive::Description& description)
{
    const QString& name = folder.Name();
    if (description.drive.unplugged) {
        return name + u" : débranché"_s;
    }
    const QString tray = description.trayOpen ? u"tiroir ouvert"_s : u"tiroir fermé"_s;
    if (!description.disc) {
        return u"%1 : %2, vide"_s.arg(name, tray);
    }
    const SeenDisc seen = SeeDisc(folder, description);
    return u"%1 : %2, %3 (%4)"_s.arg(name, tray, TypeText(seen), StateText(seen));
}

QString QuestionOfDelete(const virtualdrive::Recorders& recorders, const QString& name)
{
    QString contents = u"le disque qui s'y trouve"_s; // of one that can't be read
    runtime::ResumeNext(
        [&] { contents = ShortText(recorders.Folder(name), recorders.Show(name)); });
    return u"Supprimer le graveur virtuel et son disque ? (%1)"_s.arg(contents);
}

QString LongText(
    const virtualdrive::RecorderFolder& folder, const virtualdrive::Description& description)
{
    const DriveDescription& drive = description.drive;
    const QString path = QFile::decodeName(folder.Path().c_str());
    QStringList lines {u"Graveur : %1 (%2 %3 %4)"_s.arg(
                           folder.Name(), drive.vendor, drive.product, drive.revision),
        u"Dossier : "_s + path,
        u"Durées : "_s + (drive.realTiming ? u"réelles"_s : u"aucune attente"_s),
        u"Tiroir : "_s + (description.trayOpen ? u"ouvert"_s : u"fermé"_s)};
    if (drive.unplugged) {
        lines.append(u"Branchement : débranché"_s);
    }
    if (description.disc) {
        const SeenDisc seen = SeeDisc(folder, description);
        lines.append(u"Disque : %1, %2"_s.arg(TypeText(seen), StateText(seen)));
        lines.append(u"Espace : "_s + SpaceText(seen));
        for (const drive::SessionFacts& session : seen.disc.sessions) {
            lines.append(u"Session : secteurs %1 à %2"_s.arg(session.firstSector)
                             .arg(session.firstSector + session.sectors - 1));
        }
        lines.append(u"Secteurs : %1/%2"_s.arg(path, seen.disc.sectorFile));
    } else {
        lines.append(u"Disque : aucun"_s);
    }
    for (const virtualdrive::Fault& fault : description.faults) {
        lines.append(u"Panne prévue : "_s + FaultText(fault));
    }
    return lines.join(u'\n');
}

double UsedShare(const SeenDisc& seen)
{
    if (seen.info.totalSectors == 0) {
        return 0;
    }
    return static_cast<double>(UsedSectors(seen)) / static_cast<double>(seen.info.totalSectors);
}

std::string TextForTerminal(const QString& lines)
{
    std::string text;
    for (const QStringView line : QStringView(lines).trimmed().split(u'\n')) {
        text += unicode::HarmlessText(line.toUtf8().toStdString()) + '\n';
    }
    return text;
}

} // namespace velmora::tray
