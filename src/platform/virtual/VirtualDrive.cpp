// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/VirtualDrive.h"

#include "drive/PublishedCodes.h"
#include "virtual/DiscLook.h"
#include "virtual/DiscRules.h"
#include "virtual/SectorFile.h"
#include "virtual/VirtualErase.h"
#include "virtual/WriteRun.h"

#include <QFile>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

VirtualDrive::VirtualDrive(RecorderFolder folder, runtime::Clock& clock, runtime::EventPump& pump)
    : context_ {.folder = std::move(folder), .clock = clock, .pump = pump}
{
}

const Description& VirtualDrive::Plugged()
{
    const Description& description = context_.folder.Load();
    if (description.drive.unplugged) {
        throw drive::PublishedError(drive::hresult::kDeviceGone);
    }
    return description;
}

const Description& VirtualDrive::Accessible()
{
    const Description& description = Plugged();
    if (isBusy_) { // called from within our own pump
        throw drive::PublishedError(drive::hresult::kMediaBusy);
    }
    if (!isHeld_ && LockFile().IsHeldElsewhere(LockPart::Use)) {
        throw LockFile().InUse();
    }
    return description;
}

FolderLock& VirtualDrive::LockFile()
{
    if (!lock_) {
        lock_.emplace(context_.folder.Path());
    }
    return *lock_;
}

/// Runs one command that nothing may interrupt, neither another program nor, from within a pump,
/// our own.
template <class Command> void VirtualDrive::Hold(Command&& command)
{
    Accessible();
    if (!isHeld_ && !LockFile().TryTake(LockPart::Use)) {
        throw LockFile().InUse();
    }
    isBusy_ = true;
    const auto letGo = qScopeGuard([this] {
        isBusy_ = false;
        if (!isHeld_) {
            LockFile().Release(LockPart::Use);
        }
    });
    std::forward<Command>(command)();
}

drive::DriveFacts VirtualDrive::Identify()
{
    const DriveDescription& drive = Plugged().drive;
    const QString id = u"virtual:"_s + context_.folder.Name();
    return {.id = id,
        .vendor = drive.vendor,
        .product = drive.product,
        .revision = drive.revision,
        .volumeName = id,
        .canLoadMedia = drive.canLoadMedia,
        .legacyNumber = drive.number,
        .paths = {QFile::decodeName(context_.folder.Path().c_str())},
        .profiles = drive.profiles};
}

drive::DiscInfo VirtualDrive::Examine()
{
    const Description& description = Accessible();
    if (description.trayOpen || !description.disc) {
        return {};
    }
    const Disc& disc = RequireReadyDisc(description, context_.Now());
    return LookAtDisc(context_.folder, disc, description.drive);
}

void VirtualDrive::WaitForTray(const Description& description)
{
    context_.pump.Pump();
    if (description.drive.realTiming) {
        context_.clock.Pause(description.drive.delays.tray);
    }
}

void VirtualDrive::Eject()
{
    Hold([this] {
        WaitForTray(Plugged());
        context_.folder.Change([](Description& description) { OpenTray(description); });
    });
}

void VirtualDrive::CloseTray()
{
    if (!Accessible().drive.canLoadMedia) {
        throw drive::PublishedError(drive::hresult::kFail, u"Le tiroir se ferme à la main."_s);
    }
    bool isShut = false;
    Hold([&] {
        WaitForTray(Plugged());
        context_.folder.Change(
            [&](Description& description) { isShut = ShutTray(description, context_.Now()); });
    });
    if (!isShut) {
        throw drive::PublishedError(drive::hresult::kFail, u"Le tiroir ne se ferme pas."_s);
    }
}

void VirtualDrive::Lock(bool)
{
    Plugged();
    if (!isHeld_ && !LockFile().TryTake(LockPart::Use)) {
        throw LockFile().InUse();
    }
    isHeld_ = true;
}

void VirtualDrive::Unlock()
{
    isHeld_ = false;
    if (!isBusy_) {
        LockFile().Release(LockPart::Use);
    }
}

void VirtualDrive::Read(qint64 firstSector, std::span<std::byte> out)
{
    const auto bytes = static_cast<qint64>(out.size());
    if (firstSector < 0 || bytes % kSectorBytes != 0) {
        throw drive::PublishedError(drive::hresult::kInvalidArgument);
    }
    const Description& description = Accessible();
    const Disc& disc = RequireReadyDisc(description, context_.Now());
    const qint64 sectors = bytes / kSectorBytes;
    const auto strikes = [&](const Fault& fault) {
        return StrikesReads(fault.kind) && fault.sector >= firstSector
            && fault.sector < firstSector + sectors
            && (fault.kind != FaultKind::SlowRead || readSpeed_ != drive::ReadSpeed::Slowest);
    };
    const auto fault = std::ranges::find_if(description.faults, strikes);
    if (fault != description.faults.end()) {
        Strike(Fault(*fault));
    }
    if (!IsReadable(disc, firstSector, sectors)) {
        throw drive::PublishedError(drive::hresult::kImportReadFailure);
    }
    SectorFile(context_.folder.SectorPath(disc.sectorFile), SectorFile::Mode::Read)
        .Read(firstSector, out);
}

/// A fault of a read. Its consequences show at the next read, as with real drives, which report
/// only the sectors.
void VirtualDrive::Strike(const Fault& fault)
{
    const QString other
        = fault.kind == FaultKind::Swapped ? context_.folder.MakeSectorFile() : QString();
    context_.folder.Change([&](Description& now) {
        Spend(now, fault.kind, fault.sector);
        now.drive.unplugged |= fault.kind == FaultKind::GoneAtRead;
        if (fault.kind == FaultKind::Swapped && now.disc) {
            Disc blank;
            blank.medium = now.disc->medium;
            blank.capacity = now.disc->capacity;
            blank.sectorFile = other;
            ExchangeDisc(now, blank);
        }
    });
    throw drive::PublishedError(drive::hresult::kImportReadFailure);
}

void VirtualDrive::SetReadSpeed(drive::ReadSpeed speed)
{
    Accessible();
    readSpeed_ = speed;
}

void VirtualDrive::Write(const drive::WriteOrder& order, const drive::WriteReport& report)
{
    Hold([&] { WriteRun(context_, order, report).Run(); });
}

void VirtualDrive::Erase(bool full, const drive::EraseReport& report)
{
    Hold([&] { RunErase(context_, full, report); });
}

} // namespace velmora::virtualdrive
