// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/Description.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <limits>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

constexpr int kVersion = 1;
constexpr qint64 kMostSectors = std::numeric_limits<qint32>::max();
constexpr qint64 kMostSeconds = 86'400;

struct DelayField {
    QLatin1StringView key;
    double DriveDelays::*field;
};

constexpr std::array kDelays {
    DelayField {"tray"_L1, &DriveDelays::tray},
    DelayField {"ready"_L1, &DriveDelays::ready},
    DelayField {"format"_L1, &DriveDelays::format},
    DelayField {"prepare"_L1, &DriveDelays::prepare},
    DelayField {"calibrate"_L1, &DriveDelays::calibrate},
    DelayField {"finish"_L1, &DriveDelays::finish},
    DelayField {"quickErase"_L1, &DriveDelays::quickErase},
};

struct DiscFlag {
    QLatin1StringView key;
    bool Disc::*field;
};

constexpr std::array kDiscFlags {
    DiscFlag {"closed"_L1, &Disc::closed},
    DiscFlag {"writeProtected"_L1, &Disc::writeProtected},
    DiscFlag {"upsideDown"_L1, &Disc::upsideDown},
    DiscFlag {"formatted"_L1, &Disc::formatted},
    DiscFlag {"quicklyBlanked"_L1, &Disc::quicklyBlanked},
};

[[noreturn]] void Refuse(const QString& why) { throw UnreadableDescription(why); }

/// What a drive calls itself, without terminal control characters; the default if missing.
QString NameOf(const QJsonValue& value, const QString& missing)
{
    constexpr qsizetype kLongest = 40;
    QString name = value.toString(missing);
    name.removeIf([](QChar sign) { return !sign.isPrint(); });
    return name.left(kLongest);
}

QString SectorFileOf(const QJsonValue& value)
{
    QString name = value.toString();
    if (!IsSectorFileName(name)) {
        Refuse(u"le nom du fichier des secteurs n'est pas valide"_s);
    }
    return name;
}

/// A whole number that must lie in a range; the default if missing.
qint64 Whole(const QJsonValue& value, qint64 missing, qint64 least, qint64 most)
{
    if (value.isUndefined()) {
        return missing;
    }
    const qint64 number = value.toInteger(least - 1);
    if (number < least || number > most) {
        Refuse(u"un nombre est hors limites"_s);
    }
    return number;
}

QJsonArray ToArray(const auto& numbers)
{
    QJsonArray array;
    for (const auto number : numbers) {
        array.append(static_cast<qint64>(number));
    }
    return array;
}

template <class Number> QList<Number> NumbersOf(const QJsonValue& value)
{
    QList<Number> numbers;
    for (const QJsonValue entry : value.toArray()) {
        numbers.append(static_cast<Number>(Whole(entry, 0, 1, kMostSectors)));
    }
    return numbers;
}

QJsonObject ToObject(const DriveDescription& drive)
{
    QJsonObject speeds;
    for (auto entry = drive.speeds.cbegin(); entry != drive.speeds.cend(); ++entry) {
        speeds.insert(entry.key(), ToArray(entry.value()));
    }
    QJsonObject delays;
    for (const DelayField& delay : kDelays) {
        delays.insert(delay.key, drive.delays.*delay.field);
    }
    return {{u"vendor"_s, drive.vendor},
        {u"product"_s, drive.product},
        {u"revision"_s, drive.revision},
        {u"number"_s, drive.number},
        {u"canLoadMedia"_s, drive.canLoadMedia},
        {u"unplugged"_s, drive.unplugged},
        {u"profiles"_s, ToArray(drive.profiles)},
        {u"speeds"_s, speeds},
        {u"realTiming"_s, drive.realTiming},
        {u"delays"_s, delays}};
}

DriveDescription DriveOf(const QJsonObject& object)
{
    DriveDescription drive = NewDescription().drive;
    drive.vendor = NameOf(object[u"vendor"_s], drive.vendor);
    drive.product = NameOf(object[u"product"_s], drive.product);
    drive.revision = NameOf(object[u"revision"_s], drive.revision);
    drive.number = static_cast<qint32>(Whole(object[u"number"_s], 0, 0, kMostSectors));
    drive.canLoadMedia = object[u"canLoadMedia"_s].toBool(true);
    drive.unplugged = object[u"unplugged"_s].toBool();
    drive.realTiming = object[u"realTiming"_s].toBool();
    if (object.contains(u"profiles"_s)) {
        drive.profiles = NumbersOf<qint32>(object[u"profiles"_s]);
    }
    const QJsonObject speeds = object[u"speeds"_s].toObject();
    for (auto entry = speeds.begin(); entry != speeds.end(); ++entry) {
        drive.speeds.insert(entry.key(), NumbersOf<quint32>(entry.value()));
    }
    const QJsonObject delays = object[u"delays"_s].toObject();
    for (const DelayField& delay : kDelays) {
        double& seconds = drive.delays.*delay.field;
        seconds = delays[delay.key].toDouble(seconds);
        if (!(seconds >= 0 && seconds <= kMostSeconds)) {
            Refuse(u"une durée est hors limites"_s);
        }
    }
    return drive;
}

QJsonObject ToObject(const drive::SessionFacts& session)
{
    return {{u"first"_s, session.firstSector}, {u"sectors"_s, session.sectors}};
}

drive::SessionFacts SessionOf(const QJsonValue& value, qint64 notBefore, qint64 capacity)
{
    drive::SessionFacts session;
    session.firstSector = Whole(value[u"first"_s], notBefore, notBefore, capacity);
    session.sectors = Whole(value[u"sectors"_s], 0, 0, capacity - session.firstSector);
    return session;
}

QJsonObject ToObject(const Disc& disc)
{
    QJsonArray sessions;
    for (const drive::SessionFacts& session : disc.sessions) {
        sessions.append(ToObject(session));
    }
    QJsonObject object {{u"type"_s, disc.medium->key.toString()},
        {u"capacity"_s, disc.capacity},
        {u"sectorFile"_s, disc.sectorFile},
        {u"sessions"_s, sessions},
        {u"secondsToReady"_s, disc.secondsToReady}};
    for (const DiscFlag& flag : kDiscFlags) {
        object.insert(flag.key, disc.*flag.field);
    }
    if (disc.open) {
        object.insert(u"open"_s, ToObject(*disc.open));
    }
    return object;
}

Disc DiscOf(const QJsonObject& object)
{
    Disc disc;
    disc.medium = FindMedium(object[u"type"_s].toString());
    if (disc.medium == nullptr) {
        Refuse(u"le type de disque est inconnu"_s);
    }
    disc.capacity = Whole(object[u"capacity"_s], disc.medium->capacity, 0, kMostSectors);
    disc.sectorFile = SectorFileOf(object[u"sectorFile"_s]);
    qint64 end = 0;
    for (const QJsonValue entry : object[u"sessions"_s].toArray()) {
        disc.sessions.append(SessionOf(entry, end, disc.capacity));
        end = disc.sessions.last().firstSector + disc.sessions.last().sectors;
    }
    if (object.contains(u"open"_s)) {
        disc.open = SessionOf(object[u"open"_s], end, disc.capacity);
    }
    for (const DiscFlag& flag : kDiscFlags) {
        disc.*flag.field = object[flag.key].toBool();
    }
    disc.secondsToReady
        = static_cast<qint32>(Whole(object[u"secondsToReady"_s], 0, 0, kMostSeconds));
    return disc;
}

QJsonObject ToObject(const Fault& fault)
{
    return {
        {u"kind"_s, KeyOf(fault.kind)}, {u"sector"_s, fault.sector}, {u"lasting"_s, fault.lasting}};
}

Fault FaultOf(const QJsonObject& object)
{
    const auto kind = FindFaultKind(object[u"kind"_s].toString());
    if (!kind) {
        Refuse(u"une panne est inconnue"_s);
    }
    return {.kind = *kind,
        .sector = Whole(object[u"sector"_s], 0, 0, kMostSectors),
        .lasting = object[u"lasting"_s].toBool()};
}

} // namespace

QByteArray ToText(const Description& description)
{
    QJsonArray faults;
    for (const Fault& fault : description.faults) {
        faults.append(ToObject(fault));
    }
    QJsonObject whole {{u"version"_s, kVersion},
        {u"drive"_s, ToObject(description.drive)},
        {u"tray"_s,
            QJsonObject {{u"open"_s, description.trayOpen}, {u"readyAt"_s, description.readyAt}}},
        {u"faults"_s, faults}};
    if (description.disc) {
        whole.insert(u"disc"_s, ToObject(*description.disc));
    }
    if (!description.spareFiles.isEmpty()) {
        whole.insert(u"spareFiles"_s, QJsonArray::fromStringList(description.spareFiles));
    }
    return QJsonDocument(whole).toJson();
}

Description FromText(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject()) {
        Refuse(u"ce n'est pas du JSON"_s);
    }
    const QJsonObject whole = document.object();
    if (whole[u"version"_s].toInt() != kVersion) {
        Refuse(u"elle vient d'une autre version du programme"_s);
    }
    Description description;
    description.drive = DriveOf(whole[u"drive"_s].toObject());
    const QJsonObject tray = whole[u"tray"_s].toObject();
    description.trayOpen = tray[u"open"_s].toBool();
    description.readyAt = tray[u"readyAt"_s].toInteger();
    if (whole.contains(u"disc"_s)) {
        description.disc = DiscOf(whole[u"disc"_s].toObject());
    }
    for (const QJsonValue name : whole[u"spareFiles"_s].toArray()) {
        description.spareFiles.append(SectorFileOf(name));
    }
    if (description.disc) {
        description.spareFiles.removeAll(description.disc->sectorFile);
    }
    for (const QJsonValue entry : whole[u"faults"_s].toArray()) {
        description.faults.append(FaultOf(entry.toObject()));
    }
    return description;
}

} // namespace velmora::virtualdrive
