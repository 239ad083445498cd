// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/BurnDrive.h"

#include "drive/PublishedCodes.h"
#include "drive/Readiness.h"
#include "drives/DriveFactsReading.h"
#include "drives/DriveSpeeds.h"
#include "drives/EraseJob.h"
#include "drives/GrabbedDrive.h"
#include "drives/SenseData.h"
#include "drives/StepWatch.h"
#include "drives/WriteJob.h"
#include "runtime/ResumeNext.h"

#include <QScopeGuard>

#include <cstdint>
#include <optional>
#include <utility>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

// The error of a drive that refuses to move its tray, as the user reads it.
void RequireMoved(const std::optional<Sense>& sense, const QString& advice)
{
    if (!sense || sense->key == sense_key::kNotReady || sense->key == sense_key::kUnitAttention) {
        return; // it has moved; the disc has changed or isn't there
    }
    if (CodeOf(*sense, Task::Look) == drive::hresult::kRecorderLocked) {
        throw drive::PublishedError(drive::hresult::kRecorderLocked);
    }
    throw drive::PublishedError(drive::hresult::kFail, advice);
}

// What keeps the tray shut for now: the disc spins up, or the drive has a change to report first.
bool IsForNow(const Sense& sense)
{
    return sense.key == sense_key::kUnitAttention
        || drive::IsGettingReady(CodeOf(sense, Task::Look));
}

// What START STOP UNIT does with the tray: its bits LoEj and Start.
enum class TrayMove : std::uint8_t { Eject = 0b10, Load = 0b11 };

std::optional<Sense> StartStopUnit(const DeviceHandle& handle, TrayMove move)
{
    return handle.Send({0x1B, 0, 0, 0, static_cast<std::uint8_t>(move), 0});
}

void OpenTray(DeviceHandle& handle, const Patience& patience)
{
    const QString advice = u"Le graveur n'ouvre pas son tiroir : ouvrez-le à la main."_s;
    handle.Send({0x1E, 0, 0, 0, 0, 0}); // allow removal
    const auto begun = patience.clock.now();
    std::optional<Sense> refusal = StartStopUnit(handle, TrayMove::Eject);
    while (refusal && IsForNow(*refusal)) {
        if (patience.clock.now() - begun >= patience.ready) {
            throw drive::PublishedError(drive::hresult::kFail, advice);
        }
        patience.clock.sleep(patience.step);
        refusal = StartStopUnit(handle, TrayMove::Eject);
    }
    RequireMoved(refusal, advice);
}

void PullTray(DeviceHandle& handle, const Patience& /*patience*/)
{
    const QString advice = u"Le graveur ne peut pas fermer son tiroir : fermez-le à la main."_s;
    RequireMoved(StartStopUnit(handle, TrayMove::Load), advice);
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
        // Nobody is left to receive the failure, and the drive is free once the program ends.
    }
}

drive::DriveFacts BurnDrive::Identify()
{
    drive::DriveFacts facts;
    RunWatched([&](StepWatch&) { facts = ReadDriveFacts(device_); });
    facts.id = id_;
    facts.volumeName = id_;
    return facts;
}

drive::DiscInfo BurnDrive::Examine()
{
    drive::DiscInfo info;
    WithDrive(
        Task::Look, [&info](burn::burn_drive* drive, StepWatch&) { info = LookAtDisc(drive); });
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
    RunWatched([this](StepWatch& watch) { held_ = Take(context_.patience, watch); });
    locked_ = true;
}

void BurnDrive::Unlock()
{
    if (!locked_) {
        return;
    }
    RunWatched([this](StepWatch& watch) { LetGo(held_, watch); });
    locked_ = false;
}

void BurnDrive::Read(qint64 firstSector, std::span<std::byte> out)
{
    WithDrive(Task::Look, [firstSector, out](burn::burn_drive* drive, StepWatch&) {
        ReadSectors(drive, firstSector, out);
    });
}

void BurnDrive::SetReadSpeed(drive::ReadSpeed speed)
{
    WithDrive(
        Task::Look, [speed](burn::burn_drive* drive, StepWatch&) { AskReadSpeed(drive, speed); });
}

void BurnDrive::Write(const drive::WriteOrder& order, const drive::WriteReport& report)
{
    UnmountIfMounted();
    WriteBoard board(order.sectors);
    WriteTeller teller(board, report);
    const auto write = [&](burn::burn_drive* drive, StepWatch& watch) {
        WriteRecording(drive, order, board, watch);
    };
    const auto tell = [&](StepWatch& watch) {
        teller.Tell();
        if (board.Stops()) {
            watch.Stop();
        }
    };
    try {
        WithDrive(Task::Write, write, tell);
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
    const auto erase
        = [&](burn::burn_drive* drive, StepWatch& watch) { EraseDisc(drive, full, board, watch); };
    const auto tell = [&](StepWatch& watch) {
        teller.Tell();
        if (teller.Stops()) {
            watch.Stop();
        }
    };
    try {
        WithDrive(Task::Erase, erase, tell);
    } catch (const runtime::RuntimeError& failure) {
        const bool isRefused = failure.Number() == drive::hresult::kEraseRefused
            || failure.Number() == drive::hresult::kEraseUnexpectedResponse;
        if (isRefused && !teller.Stops() && teller.Elapsed() > kHour) {
            throw drive::PublishedError(drive::hresult::kEraseTooLong);
        }
        throw;
    }
    teller.TellEnd();
    teller.RaiseFailure();
}

void BurnDrive::RunWatched(const std::function<void(StepWatch&)>& work, const Meanwhile& meanwhile)
{
    StepWatch watch(device_, context_.clock);
    const auto look = [&] {
        if (meanwhile) {
            meanwhile(watch);
        }
        watch.Look();
    };
    try {
        library_->Run(
            context_.pump, [&] { work(watch); }, look);
    } catch (const runtime::RuntimeError&) {
        watch.RaiseFailure();
        throw;
    }
    watch.RaiseFailure(); // the library has no message for a mere query
}

void BurnDrive::WithDrive(Task task, const DriveWork& work, const Meanwhile& meanwhile)
{
    RunWatched([&](StepWatch& watch) { RunGrabbed(task, work, watch); }, meanwhile);
}

void BurnDrive::RunGrabbed(Task task, const DriveWork& work, StepWatch& watch)
{
    if (locked_) {
        RunHeld(task, work, watch);
        return;
    }
    Patience patience = context_.patience;
    patience.ready = task == Task::Look ? patience.look : patience.ready;
    GrabbedDriveOwner grabbed = Take(patience, watch);
    const auto letGo = qScopeGuard([&] { LetGo(grabbed, watch); });
    work(grabbed->Handle(), watch);
}

void BurnDrive::RunHeld(Task task, const DriveWork& work, StepWatch& watch)
{
    if (!held_ || !held_->LookAgain()) {
        LetGo(held_, watch);
        watch.Enter(Step::Taking);
        held_ = Take(context_.patience, watch);
    }
    const bool changesDisc = task != Task::Look;
    try {
        work(held_->Handle(), watch);
    } catch (...) {
        if (changesDisc || watch.Stops()) {
            LetGo(held_, watch); // a failed task blocks the drive; the next call grabs it anew
        }
        throw;
    }
    if (changesDisc) {
        LetGo(held_, watch);
        // The work is done, whatever the drive says now: the next call grabs it if this one can't.
        runtime::ResumeNext([&] { held_ = Take(context_.patience, watch); });
    }
}

BurnDrive::GrabbedDriveOwner BurnDrive::Take(const Patience& patience, StepWatch& watch) const
{
    try {
        return std::make_unique<GrabbedDrive>(device_, patience);
    } catch (...) {
        watch.Enter(Step::LettingGo);
        AllowRemoval(device_);
        throw;
    }
}

void BurnDrive::LetGo(GrabbedDriveOwner& drive, StepWatch& watch) const
{
    if (!drive) {
        return;
    }
    watch.Enter(Step::LettingGo);
    drive.reset();
    AllowRemoval(device_);
}

void BurnDrive::MoveTray(const TrayMove& move)
{
    RunWatched([&](StepWatch& watch) {
        LetGo(held_, watch);
        watch.Enter(Step::Taking);
        {
            const auto handle = OpenExclusively(device_, context_.patience);
            move(*handle, context_.patience);
        }
        if (locked_) {
            held_ = Take(context_.patience, watch);
        }
    });
}

void BurnDrive::UnmountIfMounted()
{
    if (!IsMounted(device_, context_.mountTable)) {
        return;
    }
    bool isUnmounted = false;
    RunWatched([this, &isUnmounted](StepWatch&) {
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
