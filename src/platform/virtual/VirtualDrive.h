// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/DriveContext.h"
#include "virtual/FolderLock.h"

#include <optional>

namespace velmora::virtualdrive {

/// A virtual recorder as a drive. Other processes may use the recorder's folder at the same time;
/// while one holds the drive, every use raises C0AA0210.
class VirtualDrive final : public drive::Drive {
public:
    /// @param clock, pump  must outlive the drive
    VirtualDrive(RecorderFolder folder, runtime::Clock& clock, runtime::EventPump& pump);

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
    const Description& Plugged();
    const Description& Accessible();
    FolderLock& LockFile();
    [[noreturn]] void Strike(const Fault& fault);
    void WaitForTray(const Description& description);
    template <class Command> void Hold(Command&& command);

    DriveContext context_;
    std::optional<FolderLock> lock_;
    drive::ReadSpeed readSpeed_ = drive::ReadSpeed::Fastest;
    bool isHeld_ = false; // by Lock
    bool isBusy_ = false; // a command is under way: we are inside one of its pumps
};

} // namespace velmora::virtualdrive
