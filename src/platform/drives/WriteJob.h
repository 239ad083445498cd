// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"

#include <atomic>
#include <exception>
#include <mutex>

namespace burn {
struct burn_drive;
} // namespace burn

namespace velmora::drives {

class StepWatch;

/// What the library's thread and the calling thread tell each other about a write.
class WriteBoard {
public:
    /// @param sectors  of the whole recording
    explicit WriteBoard(qint64 sectors) { progress_.sectorCount = sectors; }

    void Put(const drive::WriteProgress& progress);
    drive::WriteProgress Get() const;
    void Stop() { stops_ = true; }
    bool Stops() const { return stops_; }

private:
    mutable std::mutex mutex_;
    drive::WriteProgress progress_;
    std::atomic<bool> stops_ = false;
};

/// Reports a write's progress on the calling thread. No step is left out, however short it was.
class WriteTeller {
public:
    WriteTeller(WriteBoard& board, const drive::WriteReport& report);

    /// Reports what the board says now.
    void Tell();
    /// Reports how far a failed or stopped write got.
    void TellHowFar();
    /// Reports the rest of a successful write, which nothing stops any more. Errors: what the
    /// report raised.
    void TellEnd();
    /// Raises what the report raised, which stopped the write.
    void RaiseFailure() const;

private:
    void TellStep(drive::WriteProgress progress, drive::WriteAction action);

    WriteBoard& board_;
    const drive::WriteReport& report_;
    drive::WriteAction last_ = drive::WriteAction::ValidatingMedia;
    bool begun_ = false;
    std::exception_ptr failure_;
};

/// Writes a recording to the disc of a drive that was grabbed for it. On the library's thread.
/// Errors: those of drive::Drive::Write.
void WriteRecording(
    burn::burn_drive* drive, const drive::WriteOrder& order, WriteBoard& board, StepWatch& watch);

} // namespace velmora::drives
