// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/BurnDrive.h"

#include "drive/PublishedCodes.h"
#include "drives/DriveFactsReading.h"
#include "drives/EraseJob.h"
#include "drives/GrabbedDrive.h"
#include "drives/SenseData.h"
#include "drives/WriteJob.h"

#include <utility>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

// A drive that refuses to move its tray, in the words of a person beside it.
void RequireMoved(const std::optional<Sense>& sense, const QString& advice)
{
    if (!sense || sense->key == 2 || sense->key == 6) {
        return; // it has moved; the disc has changed or isn't there
    }
    if (CodeOf(*sense, Task::Look) == drive::hresult::kRecorderLocked) {
        throw drive::PublishedError(drive::hresult::kRecorderLocked);
    }
    throw drive::PublishedError(drive::hresult::kFail, advice);
}

void OpenTray(DeviceHandle& handle)
{
    handle.Send({0x1E, 0, 0, 0, 0, 0}); // allow removal
    RequireMoved(handle.Send({0x1B, 0, 0, 0, 2, 0}),
        u"Le graveur n'ouvre pas son tiroir : ouvrez-le à la main."_s);
}

void PullTray(DeviceHandle& handle)
{
    const QString advice = u"Le graveur ne peut pas fermer son tiroir : fermez-le à la main."_s;
    RequireMoved(handle.Send({0x1B, 0, 0, 0, 3, 0}), advice);
    if (handle.TrayIsOpen()) {
        throw drive::PublishedError(drive::hresult::kFail, advice);
    }
}

} // namespace

BurnDrive::BurnDrive(
    QString id, QString device, std::shared_ptr<LibraryThread> library, BurnDriveContext context)
    : id_(std::move(id))
    , device_(std::move(device))
    , library_(std::move(library))
    , context_(std::move(context))
{
}

BurnDrive::~BurnDrive()
{
    try {
        Unlock();
    } catch (const runtime::RuntimeError&) {
        // Nobody is left to hear of it, and the drive is free once the program ends.
    }
}

drive::DriveFacts BurnDrive::Identify()
{
    drive::DriveFacts facts;
    library_->Run(context_.pump, [&] { facts = ReadDriveFacts(device_); });
    facts.id = id_;
    facts.volumeName = id_;
    return facts;
}

drive::DiscInfo BurnDrive::Examine()
{
    drive::DiscInfo info;
    WithDrive(Task::Look, [&info](burn::burn_drive* drive) { info = LookAtDisc(drive); });
    return info;
}

void BurnDrive::Eject()
{
    UnmountIfMounted();
    MoveTray(OpenTray);
}

void BurnDrive::CloseTray() { MoveTray(PullTray); }

void BurnDrive::Lock(bool force)
{
    if (locked_) {
        return;
    }
    if (force) {
        UnmountIfMounted();
    } else if (IsMounted(device_, context_.mountTable)) {
        throw drive::PublishedError(drive::hresult::kAccessDenied,
            u"Le disque est monté : démontez-le avant de vous servir du graveur."_s);
    }
    library_->Run(context_.pump,
        [this] { held_ = std::make_unique<GrabbedDrive>(device_, context_.patience); });
    locked_ = true;
}

void BurnDrive::Unlock()
{
    if (!locked_) {
        return;
    }
    library_->Run(context_.pump, [this] { held_.reset(); });
    locked_ = false;
}

void BurnDrive::Read(qint64 firstSector, std::span<std::byte> out)
{
    WithDrive(Task::Look,
        [firstSector, out](burn::burn_drive* drive) { ReadSectors(drive, firstSector, out); });
}

void BurnDrive::Write(const drive::WriteOrder& order, const drive::WriteReport& report)
{
    UnmountIfMounted();
    WriteBoard board(order.sectors);
    WriteTeller teller(board, report);
    try {
        WithDrive(
            Task::Write,
            [&](burn::burn_drive* drive) { WriteRecording(drive, order, board); },
            [&teller] { teller.Tell(); });
    } catch (const runtime::RuntimeError&) {
        teller.TellHowFar();
        teller.RaiseFailure();
        throw;
    }
    teller.TellEnd();
}

void BurnDrive::Erase(bool full, const drive::EraseReport& report)
{
    constexpr double kHour = 3600;
    UnmountIfMounted();
    EraseBoard board;
    EraseTeller teller(board, report, context_.clock);
    try {
        WithDrive(
            Task::Erase,
            [&](burn::burn_drive* drive) { EraseDisc(drive, full, board); },
            [&teller] { teller.Tell(); });
    } catch (const runtime::RuntimeError&) {
        if (teller.Elapsed() > kHour) {
            throw drive::PublishedError(drive::hresult::kEraseTooLong);
        }
        throw;
    }
    teller.TellEnd();
    teller.RaiseFailure();
}

void BurnDrive::WithDrive(Task task, const DriveWork& work, const std::function<void()>& meanwhile)
{
    library_->Run(
        context_.pump, [&] { RunGrabbed(task, work); }, meanwhile);
}

void BurnDrive::RunGrabbed(Task task, const DriveWork& work)
{
    if (!locked_) {
        Patience patience = context_.patience;
        patience.ready = task == Task::Look ? patience.look : patience.ready;
        const GrabbedDrive grabbed(device_, patience);
        work(grabbed.Handle());
        return;
    }
    if (!held_ || !held_->LookAgain()) {
        HoldAgain();
    }
    const bool changesDisc = task != Task::Look;
    try {
        work(held_->Handle());
    } catch (...) {
        if (changesDisc) {
            held_.reset(); // a failed task bars the drive; the next call takes it anew
        }
        throw;
    }
    if (changesDisc) {
        HoldAgain();
    }
}

void BurnDrive::HoldAgain()
{
    held_.reset();
    held_ = std::make_unique<GrabbedDrive>(device_, context_.patience);
}

void BurnDrive::MoveTray(const std::function<void(DeviceHandle&)>& move)
{
    library_->Run(context_.pump, [&] {
        held_.reset();
        {
            const auto handle = OpenExclusively(device_, context_.patience);
            move(*handle);
        }
        if (locked_) {
            HoldAgain();
        }
    });
}

void BurnDrive::UnmountIfMounted()
{
    if (!IsMounted(device_, context_.mountTable)) {
        return;
    }
    bool isUnmounted = false;
    library_->Run(context_.pump, [this, &isUnmounted] {
        auto* unmounter = context_.unmounter;
        isUnmounted = unmounter != nullptr && unmounter->Unmount(device_);
    });
    if (!isUnmounted) {
        throw drive::PublishedError(drive::hresult::kRecorderLocked,
            u"Le disque est monté et n'a pas pu être démonté : fermez les fichiers ouverts, puis "
            "recommencez."_s);
    }
}

} // namespace velmora::drives
