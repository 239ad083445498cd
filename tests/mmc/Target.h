// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/mmc/Recorder.h"
#include "tests/mmc/Replies.h"
#include "tests/mmc/StateFile.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace velmora::mmc {

/// The sectors of a disc in a plain file: sector n at n times 2048.
class SectorFile {
public:
    SectorFile() = default;
    SectorFile(const SectorFile&) = delete;
    SectorFile& operator=(const SectorFile&) = delete;
    ~SectorFile() { Close(); }

    void Open(const std::filesystem::path& file);
    void Close();
    void Write(std::int64_t sector, std::span<const std::uint8_t> bytes);
    /// What was never written reads as zeros.
    void Read(std::int64_t sector, std::span<std::uint8_t> bytes) const;
    void Clear();
    /// Replaces everything written by that byte.
    void Fill(std::uint8_t byte);

private:
    int file_ = -1;
};

/// Sectors that a command is for.
struct Extent {
    std::int64_t first;
    std::int64_t count;

    bool Holds(std::int64_t sector) const
    {
        return sector >= 0 && sector >= first && sector < first + count;
    }
};

/// A command as the host sends it.
struct Command {
    std::span<const std::uint8_t> block; ///< operation code and parameters
    std::span<std::uint8_t> data;        ///< from or to the host
};

/// The result of a command.
struct Outcome {
    Refusal sense;
    int progress = -1; ///< of 65536, reported with the sense; -1 = not reported
    std::size_t transferred = 0;
    int hostStatus = 0; ///< of the transport: 1 gone, 3 timed out
    int hangMilliseconds = 0;
};

/// The sense data in the drive's format.
std::vector<std::uint8_t> SenseBytes(const Outcome& outcome, SenseForm form);

/// The drive's command set over a state and a disc's sectors. One caller at a time.
class Target {
public:
    Target(DriveState& state, SectorFile& sectors);

    Outcome Execute(const Command& command);
    Recorder& Writing() { return recorder_; }
    /// What SET STREAMING or SET CD SPEED asked for: 1000 bytes a second, 0 before.
    int WriteSpeed() const { return writeSpeed_; }
    int ReadSpeed() const { return readSpeed_; }
    /// Can the tray not be opened by hand?
    bool Locked() const { return locked_; }
    /// The disc was exchanged by hand, unnoticed by the drive.
    void DiscExchanged();
    /// Completes what the drive is busy with.
    void EndTask() { busy_ = {}; }
    /// One word for each kind of command that changes the disc irreversibly.
    static bool ChangesDisc(std::uint8_t operation);

private:
    struct Busy {
        int polls = 0; // TEST UNIT READY until it is done
        int total = 0;
        Sense sense;
        bool erases = false;
    };

    Outcome Dispatch(const Command& command);
    Outcome DispatchReport(const Command& command);
    Outcome DispatchDisc(const Command& command);
    Outcome Send(const Command& command, const Reply& reply, std::size_t allocation) const;
    Refusal Troubles(std::uint8_t operation);
    Outcome TestUnitReady();
    Outcome StartStop(std::span<const std::uint8_t> block);
    Outcome SetSpeed(const Command& command);
    Outcome PreventRemoval(std::span<const std::uint8_t> block);
    Outcome ModeSelect(const Command& command);
    Outcome Write(const Command& command);
    void WriteFault(std::int64_t address, std::int64_t count, Outcome& outcome);
    void Record(const Extent& extent, std::span<const std::uint8_t> bytes);
    void ReadFault(const Extent& extent, Outcome& outcome);
    Outcome Read(const Command& command);
    Outcome Close(std::span<const std::uint8_t> block);
    Outcome Refuse(const Refusal& refusal) const;
    Outcome Erase(const Refusal& refusal);
    Outcome FormatUnit(const Command& command);
    Outcome BufferCapacity(const Command& command) const;
    void BeginBusy(int polls, Sense sense, bool erases);
    bool Readable(std::int64_t first, std::int64_t count) const;
    bool HasDisc() const { return !state_.trayOpen && state_.disc.profile != 0; }

    DriveState& state_;
    SectorFile& sectors_;
    Recorder recorder_;
    Busy busy_;
    int readSpeed_ = 0;
    int writeSpeed_ = 0;
    bool locked_ = false;
    bool changed_ = true; // to be reported once
};

} // namespace velmora::mmc
