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

/// An emulated drive for optical discs: the functions of the C library that burning programs call
/// are answered here for one path, which need not exist.
///
/// Linked into a program, it is controlled by the members below; preloaded, by the environment:
/// MMC_DRIVE_STATE (the state file; without it there is no drive), MMC_DRIVE_DEVICE (/dev/sr0),
/// MMC_DRIVE_LOG (a file that gets all commands), MMC_DRIVE_HASTE (what sleeps are divided by, 50).
/// The sectors of the disc are in a file with the state file's name and ".sectors".
///
/// The state file is read when nobody has the drive open, and written at each change, so that a
/// second process finds the disc of the first.
///
/// As with the real system, BLKGETSIZE64 tells a linked program the size that the disc had when it
/// was inserted: later recordings show after the tray has been closed again.
class EmulatedDrive {
public:
    /// The one drive. It is never destroyed: calls come until the process is gone.
    static EmulatedDrive& Instance();

    /// Connects the drive, in the state given by the file.
    void Plug(const std::filesystem::path& stateFile);
    /// Disconnects the drive: the device is gone.
    void Unplug();
    /// Inserts another disc, filled with zeros; closes the tray.
    void Insert(const Disc& disc);
    /// Changes the tray, the disc or the faults.
    void Change(const std::function<void(DriveState&)>& change);
    DriveState State();
    std::vector<std::uint8_t> Sectors(std::int64_t first, std::int64_t count);
    /// Writes sectors into the disc's file, as if they had been recorded.
    void PutSectors(std::int64_t first, std::vector<std::uint8_t> bytes);

    /// All commands since the last call of ForgetLog, each as its bytes and its result: "35 00 00
    /// 00 00 00 00 00 00 00 -> ok".
    std::vector<std::string> Log();
    /// What the host did wrong since then.
    std::vector<std::string> Violations();
    void ForgetLog();
    /// The speed last requested by the host: 1000 bytes a second.
    int WriteSpeed();
    int ReadSpeed();
    /// The drive completes what it is busy with.
    void EndTask();
    /// Is the tray locked?
    bool Locked();
    /// How many handles on the device are open.
    int OpenHandles() const { return openHandles_; }

    // The implementation of the intercepted functions.
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
