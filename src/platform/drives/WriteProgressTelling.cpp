// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/WriteJob.h"

namespace velmora::drives {

using drive::WriteAction;
using drive::WriteProgress;

void WriteBoard::Put(const WriteProgress& progress)
{
    const std::scoped_lock lock(mutex_);
    progress_ = progress;
}

WriteProgress WriteBoard::Get() const
{
    const std::scoped_lock lock(mutex_);
    return progress_;
}

WriteTeller::WriteTeller(WriteBoard& board, const drive::WriteReport& report)
    : board_(board)
    , report_(report)
{
}

void WriteTeller::TellStep(WriteProgress progress, WriteAction action)
{
    progress.action = action;
    last_ = action;
    if (!report_ || failure_) {
        return;
    }
    try {
        if (!report_(progress)) {
            board_.Stop();
        }
    } catch (...) {
        failure_ = std::current_exception();
        board_.Stop();
    }
}

void WriteTeller::Tell()
{
    const WriteProgress progress = board_.Get();
    if (!begun_) {
        begun_ = true;
        TellStep(progress, WriteAction::ValidatingMedia);
    } else if (progress.action == last_) {
        TellStep(progress, last_); // a stop counts in any step
    }
    while (last_ < progress.action) {
        const auto next = static_cast<WriteAction>(static_cast<qint32>(last_) + 1);
        const bool passes = next == WriteAction::FormattingMedia && next != progress.action;
        if (passes) {
            last_ = next; // most discs need no formatting
        } else {
            TellStep(progress, next);
        }
    }
}

void WriteTeller::TellHowFar()
{
    Tell();
    TellStep(board_.Get(), last_);
}

void WriteTeller::TellEnd()
{
    WriteProgress progress = board_.Get();
    progress.lastReadSector = progress.startSector + progress.sectorCount;
    progress.lastWrittenSector = progress.lastReadSector;
    if (last_ <= WriteAction::WritingData) {
        progress.action = WriteAction::Finalization;
        board_.Put(progress);
        Tell();
    }
    RaiseFailure();
    TellStep(progress, WriteAction::Completed);
    RaiseFailure();
}

void WriteTeller::RaiseFailure() const
{
    if (failure_) {
        std::rethrow_exception(failure_);
    }
}

} // namespace velmora::drives
