// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drive/SectorSize.h"
#include "unicode/PieceBuffer.h"
#include "virtual/SectorFile.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

namespace velmora::virtualdrive {

/// Moves sectors from a source to a file on a thread of its own, so that neither a slow source nor
/// a busy disk blocks the program's thread.
class SectorWriter {
public:
    /// @param file  must outlive the writer
    SectorWriter(const drive::WriteSource& source, SectorFile& file, qint64 firstSector);
    SectorWriter(const SectorWriter&) = delete;
    SectorWriter& operator=(const SectorWriter&) = delete;
    /// Waits for the piece that is under way.
    ~SectorWriter();

    /// Allows the writer to continue up to a number of sectors, counted from the start.
    void AllowUpTo(qint64 sectors);

    /// Waits until everything allowed is written and no piece is under way, but no longer than
    /// this.
    /// @return false on a timeout
    /// Errors: what the source or the file raised.
    bool WaitFor(std::chrono::milliseconds longest);
    /// As WaitFor, for a writer whose failure no longer matters.
    bool IsAtRest(std::chrono::milliseconds longest);

    qint64 TakenSectors() const;
    qint64 WrittenSectors() const;

private:
    void Work();
    void BeginFlush(qint64 writtenSectors);
    bool IsIdle() const { return !isBusy_ && (failure_ || written_ >= allowed_); }

    // Small enough for the processor's cache, so that the bytes are still there when they are
    // written, and for the system to find contiguous memory for the file quickly.
    static constexpr qint64 kPieceSectors = 32;
    using Piece = unicode::PieceBuffer<kPieceSectors * drive::kSectorBytes>;

    const drive::WriteSource& source_;
    SectorFile& file_;
    qint64 firstSector_;
    std::unique_ptr<Piece> piece_ = std::make_unique_for_overwrite<Piece>();

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    qint64 allowed_ = 0;
    qint64 taken_ = 0;
    qint64 written_ = 0;
    qint64 flushed_ = 0; // of those, the first that were flushed; the thread's own
    bool isBusy_ = false;
    bool isEnding_ = false;
    std::exception_ptr failure_;
    std::thread thread_; // the last member: it uses all others
};

} // namespace velmora::virtualdrive
