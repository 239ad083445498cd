// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/DiscRules.h"

#include "drive/PublishedCodes.h"

#include <algorithm>

namespace velmora::virtualdrive {

namespace {

constexpr qint64 kFullPercent = 2; // with less room left a disc is closed
constexpr qint64 kMillisecondsPerSecond = 1000;

bool IsOverwritable(const Disc& disc) { return disc.medium->recording == Recording::Overwritable; }

bool IsErasable(const Disc& disc)
{
    return drive::IsErasable(drive::MediaTypeOfProfile(disc.medium->profile));
}

bool IsSessionDisc(const Disc& disc)
{
    return disc.medium->recording == Recording::Once
        || disc.medium->recording == Recording::Sequential;
}

bool IsKnownTo(const DriveDescription& drive, const Disc& disc)
{
    return disc.medium->recording != Recording::Unknown
        && drive.profiles.contains(disc.medium->profile);
}

bool IsFormatted(const Disc& disc)
{
    return disc.medium->formatting != Formatting::BeforeFirstWrite || disc.formatted;
}

qint64 RoundUp(qint64 value, qint64 unit) { return (value + unit - 1) / unit * unit; }

qint64 EndOf(const drive::SessionFacts& session) { return session.firstSector + session.sectors; }

qint64 NextWritable(const Disc& disc)
{
    if (IsOverwritable(disc)) {
        return 0;
    }
    if (disc.open) {
        return disc.open->firstSector + RoundUp(disc.open->sectors, disc.medium->padTo);
    }
    if (disc.sessions.isEmpty()) {
        return 0;
    }
    const bool isFirst = disc.sessions.size() == 1;
    return EndOf(disc.sessions.last()) + (isFirst ? disc.medium->firstGap : disc.medium->laterGap);
}

qint64 FreeSectors(const Disc& disc)
{
    if (IsOverwritable(disc)) {
        return disc.capacity;
    }
    if (!IsSessionDisc(disc) || disc.closed) {
        return 0;
    }
    return std::max<qint64>(0, disc.capacity - NextWritable(disc));
}

bool IsBlank(const Disc& disc)
{
    return IsSessionDisc(disc) && !disc.closed && disc.sessions.isEmpty()
        && NextWritable(disc) == 0;
}

bool CanStayOpen(const Disc& disc)
{
    return IsSessionDisc(disc) && disc.medium->canStayOpen && !disc.quicklyBlanked
        && FreeSectors(disc) > 0;
}

drive::DiscState StateOf(const Disc& disc)
{
    if (IsOverwritable(disc)) {
        return drive::DiscState::Overwritable;
    }
    if (FreeSectors(disc) == 0) {
        return drive::DiscState::Closed;
    }
    return IsBlank(disc) ? drive::DiscState::Blank : drive::DiscState::Appendable;
}

qint64 TotalSectors(const Disc& disc)
{
    return disc.closed && !disc.sessions.isEmpty() ? EndOf(disc.sessions.last()) : disc.capacity;
}

bool IsDashRecordable(qint32 profile)
{
    return profile == drive::profile::kDvdDashR || profile == drive::profile::kDvdDashRwSequential
        || profile == drive::profile::kDvdDashRDualLayer;
}

/// Sectors that a recording takes on the disc, as drives pad it. A blank disc that is written in
/// one go (a CD, and a DVD-R that is closed) needs no padding.
qint64 PaddedSectors(const Disc& disc, qint64 sectors, bool closes)
{
    const qint32 profile = disc.medium->profile;
    const bool isBlank = IsBlank(disc);
    if (IsSessionDisc(disc) && drive::FamilyOfProfile(profile) == drive::DiscFamily::Cd) {
        return isBlank ? sectors : std::max(sectors, drive::kShortestCdTrack);
    }
    if (IsDashRecordable(profile) && isBlank && closes) {
        return sectors;
    }
    return RoundUp(sectors, disc.medium->padTo);
}

/// Whether nothing, or next to nothing, could follow a recording that ends at a sector.
bool IsNearlyFull(const Disc& disc, qint64 end)
{
    const qint64 gap = disc.sessions.isEmpty() ? disc.medium->firstGap : disc.medium->laterGap;
    return (disc.capacity - end - gap) * 100 <= disc.capacity * kFullPercent;
}

} // namespace

const Disc& RequireReadyDisc(const Description& description, qint64 now)
{
    if (description.trayOpen || !description.disc) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    const Disc& disc = *description.disc;
    // A clock that was set back must not keep the drive busy for ever.
    const qint64 left = description.readyAt - now;
    const qint64 most = kMillisecondsPerSecond
        * (disc.secondsToReady + static_cast<qint64>(description.drive.delays.ready) + 1);
    if ((left > 0 && left <= most) || FindFault(description, FaultKind::NeverReady) != nullptr) {
        throw drive::PublishedError(drive::hresult::kBecomingReady);
    }
    if (disc.upsideDown) {
        throw drive::PublishedError(drive::hresult::kUpsideDown);
    }
    return disc;
}

void RequireStillThere(const Description& description, const QString& sectorFile)
{
    if (description.drive.unplugged) {
        throw drive::PublishedError(drive::hresult::kDeviceGone);
    }
    if (description.trayOpen || !description.disc || description.disc->sectorFile != sectorFile) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
}

drive::DiscInfo InfoOf(const Disc& disc, const DriveDescription& drive, bool startIsZero)
{
    drive::DiscInfo info;
    if (!IsKnownTo(drive, disc)) {
        info.state = drive::DiscState::Unsupported;
        info.profile = drive::profile::kUnknown;
        return info;
    }
    info.state = StateOf(disc);
    info.profile = disc.medium->profile;
    info.heuristicallyBlank
        = IsOverwritable(disc) ? !IsFormatted(disc) || startIsZero : IsBlank(disc);
    info.erasable = IsErasable(disc);
    info.writeProtected = disc.writeProtected;
    info.lastSessionOpen = IsSessionDisc(disc) && disc.open && disc.open->sectors > 0;
    info.damaged = info.lastSessionOpen;
    info.canStayOpen = CanStayOpen(disc);
    info.freeSectors = FreeSectors(disc);
    info.totalSectors = TotalSectors(disc);
    info.nextWritable = info.freeSectors > 0 ? NextWritable(disc) : 0;
    if (!IsOverwritable(disc)) {
        info.sessions = disc.sessions;
    }
    info.writeSpeeds = SpeedsOf(disc, drive);
    return info;
}

QList<quint32> SpeedsOf(const Disc& disc, const DriveDescription& drive)
{
    const auto own = drive.speeds.constFind(disc.medium->key.toString());
    QList<quint32> speeds;
    if (own != drive.speeds.constEnd()) {
        speeds = *own;
    } else {
        speeds.append({disc.medium->speeds.begin(), disc.medium->speeds.end()});
        speeds.removeAll(0);
    }
    std::ranges::sort(speeds, std::greater());
    speeds.erase(std::unique(speeds.begin(), speeds.end()), speeds.end());
    return speeds;
}

quint32 FastestNotAbove(const QList<quint32>& speeds, quint32 asked)
{
    for (const quint32 speed : speeds) {
        if (speed <= asked) {
            return speed;
        }
    }
    return speeds.isEmpty() ? 0 : speeds.last();
}

bool IsReadable(const Disc& disc, qint64 first, qint64 sectors)
{
    if (first < 0 || first + sectors > disc.capacity) {
        return false;
    }
    if (IsOverwritable(disc)) {
        return IsFormatted(disc);
    }
    const auto holds = [&](const drive::SessionFacts& session) {
        return first >= session.firstSector && first + sectors <= EndOf(session);
    };
    return std::ranges::any_of(disc.sessions, holds) || (disc.open && holds(*disc.open));
}

WritePlan PlanWrite(const Disc& disc, const DriveDescription& drive, qint64 sectors, bool closeDisc)
{
    if (sectors <= 0) {
        throw drive::PublishedError(drive::hresult::kInvalidArgument);
    }
    if (!IsKnownTo(drive, disc) || disc.medium->recording == Recording::Pressed) {
        throw drive::PublishedError(drive::hresult::kMediaNotSupported);
    }
    if (disc.writeProtected) {
        throw drive::PublishedError(drive::hresult::kWriteProtected);
    }
    if (FreeSectors(disc) == 0) {
        throw drive::PublishedError(drive::hresult::kInvalidMediaState);
    }
    if (sectors > FreeSectors(disc)) {
        throw drive::PublishedError(drive::hresult::kStreamTooLarge);
    }
    WritePlan plan {.first = NextWritable(disc)};
    const bool mustClose
        = closeDisc || !CanStayOpen(disc) || IsNearlyFull(disc, plan.first + sectors);
    plan.closes = IsSessionDisc(disc) && mustClose;
    plan.formats = disc.medium->formatting == Formatting::BeforeEachWrite || !IsFormatted(disc);
    plan.end = std::min(disc.capacity, plan.first + PaddedSectors(disc, sectors, plan.closes));
    return plan;
}

void BeginWrite(Disc& disc, const WritePlan& plan)
{
    if (IsSessionDisc(disc)) {
        disc.open = drive::SessionFacts {.firstSector = plan.first, .sectors = 0};
        return;
    }
    disc.sessions.clear();
    disc.formatted = true;
}

void KeepProgress(Disc& disc, qint64 sectors)
{
    if (disc.open) {
        disc.open->sectors = sectors;
    }
}

void EndWrite(Disc& disc, const WritePlan& plan)
{
    disc.open.reset();
    disc.sessions.append({.firstSector = plan.first, .sectors = plan.end - plan.first});
    disc.closed = plan.closes;
}

void RequireErasable(const Disc& disc, const DriveDescription& drive)
{
    if (!IsKnownTo(drive, disc)) {
        throw drive::PublishedError(drive::hresult::kEraseMediaNotSupported);
    }
    if (!IsErasable(disc)) {
        throw drive::PublishedError(drive::hresult::kNotErasable);
    }
    if (disc.writeProtected) {
        throw drive::PublishedError(drive::hresult::kWriteProtected);
    }
}

Disc Erased(Disc disc, bool full, const QString& sectorFile)
{
    if (disc.medium->formatting == Formatting::BeforeEachWrite) {
        disc.medium = FindMedium(u"dvd-rw"); // blanking turns the one kind of DVD-RW into the other
    }
    disc.sectorFile = sectorFile;
    disc.sessions.clear();
    disc.open.reset();
    disc.closed = false;
    disc.formatted = IsOverwritable(disc) && (full || disc.formatted);
    disc.quicklyBlanked = disc.medium->profile == drive::profile::kDvdDashRwSequential && !full;
    return disc;
}

void OpenTray(Description& description)
{
    description.trayOpen = true;
    Spend(description, FaultKind::NeverReady);
}

bool ShutTray(Description& description, qint64 now)
{
    if (!description.trayOpen) {
        return true;
    }
    if (FindFault(description, FaultKind::TrayStuck) != nullptr) {
        Spend(description, FaultKind::TrayStuck);
        return false;
    }
    description.trayOpen = false;
    const double delay = description.drive.realTiming ? description.drive.delays.ready : 0;
    const double seconds = delay + (description.disc ? description.disc->secondsToReady : 0);
    description.readyAt = now + static_cast<qint64>(seconds * kMillisecondsPerSecond);
    return true;
}

} // namespace velmora::virtualdrive
