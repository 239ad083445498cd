// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/SectorWriter.h"

#include <algorithm>

namespace velmora::virtualdrive {

SectorWriter::SectorWriter(const drive::WriteSource& source, SectorFile& file, qint64 firstSector)
    : source_(source)
    , file_(file)
    , firstSector_(firstSector)
    , thread_([this] { Work(); })
{
}

SectorWriter::~SectorWriter()
{
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void SectorWriter::AllowUpTo(qint64 sectors)
{
    {
        const std::lock_guard lock(mutex_);
        allowed_ = sectors;
    }
    changed_.notify_all();
}

bool SectorWriter::IsAtRest(std::chrono::milliseconds longest)
{
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, longest, [this] { return IsIdle(); });
}

bool SectorWriter::WaitFor(std::chrono::milliseconds longest)
{
    std::unique_lock lock(mutex_);
    const bool isIdle = changed_.wait_for(lock, longest, [this] { return IsIdle(); });
    if (isIdle && failure_) {
        std::rethrow_exception(failure_);
    }
    return isIdle;
}

qint64 SectorWriter::TakenSectors() const
{
    const std::lock_guard lock(mutex_);
    return taken_;
}

qint64 SectorWriter::WrittenSectors() const
{
    const std::lock_guard lock(mutex_);
    return written_;
}

/// Flushes what is written bit by bit: the end of a burn needn't wait long then.
void SectorWriter::BeginFlush(qint64 writtenSectors)
{
    constexpr qint64 kSectorsAtOnce = 2048; // 4 MiB
    if (writtenSectors - flushed_ >= kSectorsAtOnce) {
        file_.BeginFlush(firstSector_ + flushed_, writtenSectors - flushed_);
        flushed_ = writtenSectors;
    }
}

void SectorWriter::Work()
{
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return isEnding_ || written_ < allowed_; });
        if (isEnding_) {
            return;
        }
        const qint64 sectors = std::min(kPieceSectors, allowed_ - written_);
        const auto bytes
            = std::span(piece_->bytes).first(static_cast<std::size_t>(sectors * kSectorBytes));
        isBusy_ = true;
        lock.unlock();
        std::exception_ptr failure;
        try {
            source_(bytes);
            lock.lock();
            taken_ += sectors;
            lock.unlock();
            file_.Write(firstSector_ + written_, bytes);
            BeginFlush(written_ + sectors);
        } catch (...) { // any exception is passed to the program's thread
            failure = std::current_exception();
        }
        lock.lock();
        isBusy_ = false;
        if (failure) {
            failure_ = failure;
            changed_.notify_all();
            return;
        }
        written_ += sectors;
        if (written_ >= allowed_) {
            changed_.notify_all();
        }
    }
}

} // namespace velmora::virtualdrive
