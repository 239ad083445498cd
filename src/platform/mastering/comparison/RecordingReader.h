// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/BoundDrive.h"
#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>

namespace velmora::mastering {

/// How a read ended.
enum class ReadEnd : quint8 { Read, Unreadable, Stopped };

/// What to do about a disc that gives nothing at all.
enum class WhenUnreadable : quint8 {
    TakeAnew, ///< reload it: some drives can read it only then
    GoOn,     ///< nothing: its other sectors may be readable
};

/// Reads a recording back from the disc that was just written. Waits for a drive that is still
/// recognising its disc, and reloads a disc that gives nothing at all.
class RecordingReader {
public:
    /// Called before and after each step, with the sector after the last one read; false stops.
    using GoesOn = std::function<bool(qint64 behindLast)>;

    RecordingReader(drive::BoundDrive& drive,
        runtime::Clock& clock,
        GoesOn goesOn,
        WhenUnreadable whenUnreadable = WhenUnreadable::TakeAnew);

    /// Waits until the drive has recognised its disc.
    /// Errors: those of Drive::Examine; C0AA0202 for an empty drive, and for another disc than the
    /// one that was read; any of them, or C0AA0002, when it is stopped.
    void TakeDisc();

    /// Reads whole sectors, in steps that last no longer than half a second.
    /// Errors: as TakeDisc; C0AAB157 for a disc of which nothing was read yet, in a drive that
    /// can't reload it by itself.
    ReadEnd Read(qint64 firstSector, std::span<std::byte> out);

    /// Requests a speed from the drive; if that fails, reading continues anyway.
    void SetSpeed(drive::ReadSpeed speed);

    bool IsStopped() const { return isStopped_; }
    /// The disc has given at least something.
    bool HasRead() const { return hasRead_; }
    /// Why the last unreadable sectors couldn't be read.
    const QString& WhyUnreadable() const { return whyUnreadable_; }
    /// Seconds spent in reads that failed.
    double SecondsLost() const { return secondsLost_; }

private:
    bool GoOn(qint64 behindLast);
    bool ReadStep(qint64 firstSector, std::span<std::byte> out);
    bool TryAgain(const runtime::RuntimeError& failure);
    void TakeAnew(const runtime::RuntimeError& failure);
    void Pace(double seconds);

    drive::BoundDrive& drive_;
    std::optional<drive::DiscInfo> disc_; // as it was taken last
    runtime::Clock& clock_;
    GoesOn goesOn_;
    qint64 behindLast_ = 0;
    std::size_t sectorsAtOnce_;
    bool isTakenAnew_; // or shouldn't be
    bool hasRead_ = false;
    QString whyUnreadable_;
    bool wasWaitedFor_ = false; // since the last read that succeeded
    bool isStopped_ = false;
    double secondsLost_ = 0;
};

} // namespace velmora::mastering
