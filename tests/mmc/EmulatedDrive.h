// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/mmc/Target.h"

#include <sys/stat.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

struct sg_io_hdr;

namespace velmora::mmc {

/// A drive for optical discs that isn't there: the functions of the C library that burning programs
/// call are answered here for one path, which need not exist.
///
/// Linked into a program, it is steered by the members below. Preloaded, by the environment:
/// MMC_DRIVE_STATE (the state file; without it there is no drive), MMC_DRIVE_DEVICE (/dev/sr0),
/// MMC_DRIVE_LOG (a file that gets all commands), MMC_DRIVE_HASTE (what sleeps are divided by, 50).
/// The sectors of the disc are in the file of the state's name with ".sectors" behind it.
///
/// The state file is read when nobody has the drive open, and written at each change, so that a
/// second process finds the disc of the first.
///
/// As from the system, a program that it is linked into hears from BLKGETSIZE64 the size that the
/// disc had when it came in: what is recorded later shows when the tray has closed on it once more.
class EmulatedDrive {
public:
    /// The one drive. It is never destroyed: calls come until the process is gone.
    static EmulatedDrive& Instance();

    /// Connects the drive, in the state that the file tells.
    void Plug(const std::filesystem::path& stateFile);
    /// There is no such device any more.
    void Unplug();
    /// Puts in another disc, with nothing on it but zeros; closes the tray.
    void Insert(const Disc& disc);
    /// Changes tray, disc or faults in place.
    void Change(const std::function<void(DriveState&)>& change);
    DriveState State();
    std::vector<std::uint8_t> Sectors(std::int64_t first, std::int64_t count);
    /// Writes sectors into the disc's file, as if they had been recorded.
    void PutSectors(std::int64_t first, std::vector<std::uint8_t> bytes);

    /// All commands since the last call of ForgetLog, each as its bytes and what came of it:
    /// "35 00 00 00 00 00 00 00 00 00 -> ok".
    std::vector<std::string> Log();
    /// What the host did wrong since then.
    std::vector<std::string> Violations();
    void ForgetLog();
    /// What the host asked for last: 1000 bytes a second.
    int WriteSpeed();
    int ReadSpeed();
    /// The drive is done with what it is busy with.
    void EndTask();
    /// Was the tray locked, and not unlocked since?
    bool Locked();
    /// How many handles on the device are open.
    int OpenHandles() const { return openHandles_; }

    // What the intercepted functions ask for.
    bool Answers(const char* path) const;
    bool Owns(int handle) const;
    int Open(int flags);
    void Close(int handle);
    int Control(int handle, unsigned long request, void* argument);
    /// The device's facts. @return -1 with errno when it is gone
    int Describe(struct stat* facts) const;
    unsigned Haste() const { return haste_; }

private:
    static constexpr std::size_t kMostHandles = 1024;

    EmulatedDrive();
    int Refused(int flags) const;
    void Transfer(sg_io_hdr& header);
    Outcome Run(const Command& command);
    void Note(const Command& command, const Outcome& outcome);
    void LearnSize();
    void Save();

    std::mutex mutex_;
    std::string device_;
    std::filesystem::path stateFile_;
    std::filesystem::path logFile_;
    unsigned haste_ = 50;
    std::atomic<bool> plugged_ = false;
    std::atomic<int> openHandles_ = 0;
    std::array<std::atomic<bool>, kMostHandles> handles_ {};
    DriveState state_;
    std::int64_t systemSectors_ = 0; // as the system believes
    SectorFile sectors_;
    Target target_ {state_, sectors_};
    std::vector<std::string> log_;
};

} // namespace velmora::mmc
