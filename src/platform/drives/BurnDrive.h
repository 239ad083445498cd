// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drive/Unmounter.h"
#include "drives/DeviceHandle.h"
#include "drives/LibraryThread.h"
#include "drives/Messages.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"

#include <QString>

#include <functional>
#include <memory>

namespace burn {
struct burn_drive;
} // namespace burn

namespace velmora::drives {

class GrabbedDrive;
class StepWatch;

/// What real drives depend on. All of it must outlive them.
struct BurnDriveContext {
    runtime::EventPump& pump;
    const runtime::Clock& clock;
    drive::Unmounter* unmounter = nullptr; ///< without one a mounted disc stays mounted
    Patience patience {};
    QString mountTable = QStringLiteral("/proc/self/mountinfo");
};

/// A drive of this machine. Other programs are locked out during each call, and between calls only
/// while it is locked.
class BurnDrive final : public drive::Drive {
public:
    /// @param id  identifies the drive
    /// @param device  its device file, as in /dev/sr0
    BurnDrive(QString id,
        QString device,
        std::shared_ptr<LibraryThread> library,
        BurnDriveContext context);
    ~BurnDrive() override;
    BurnDrive(const BurnDrive&) = delete;
    BurnDrive& operator=(const BurnDrive&) = delete;
    BurnDrive(BurnDrive&&) = delete;
    BurnDrive& operator=(BurnDrive&&) = delete;

    drive::DriveFacts Identify() override;
    drive::DiscInfo Examine() override;
    void Eject() override;
    void CloseTray() override;
    void Lock(bool force) override;
    void Unlock() override;
    void Read(qint64 firstSector, std::span<std::byte> out) override;
    void SetReadSpeed(drive::ReadSpeed speed) override;
    void Write(const drive::WriteOrder& order, const drive::WriteReport& report) override;
    void Erase(bool full, const drive::EraseReport& report) override;

private:
    using DriveWork = std::function<void(burn::burn_drive*, StepWatch&)>;

    using Meanwhile = std::function<void(StepWatch&)>;
    using TrayMove = std::function<void(DeviceHandle&, const Patience&)>;
    using GrabbedDriveOwner = std::unique_ptr<GrabbedDrive>;

    void RunWatched(const std::function<void(StepWatch&)>& work, const Meanwhile& meanwhile = {});
    void WithDrive(Task task, const DriveWork& work, const Meanwhile& meanwhile = {});
    void RunGrabbed(Task task, const DriveWork& work, StepWatch& watch);
    void RunHeld(Task task, const DriveWork& work, StepWatch& watch);
    void MoveTray(const TrayMove& move);
    void UnmountIfMounted();
    GrabbedDriveOwner Take(const Patience& patience, StepWatch& watch) const;
    void LetGo(GrabbedDriveOwner& drive, StepWatch& watch) const;

    QString id_;
    QString device_;
    std::shared_ptr<LibraryThread> library_;
    BurnDriveContext context_;
    bool locked_ = false;
    std::unique_ptr<GrabbedDrive> held_; // touched on the library's thread only
};

} // namespace velmora::drives
