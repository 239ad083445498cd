// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/TrackDigest.h"

#include "unicode/PieceBuffer.h"

#include <algorithm>

namespace velmora::mastering {

namespace {

constexpr std::size_t kBatchBytes = std::size_t {256} << 10;

} // namespace

struct TrackDigest::Batch {
    unicode::PieceBuffer<kBatchBytes> buffer;
    std::size_t size = 0;
};

TrackDigest::TrackDigest()
{
    for (auto& batch : batches_) {
        batch = std::make_unique_for_overwrite<Batch>();
    }
    thread_ = std::thread([this] { Work(); });
}

TrackDigest::~TrackDigest() { End(); }

void TrackDigest::Add(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        Batch& batch = *batches_[handedOver_ % kBatches];
        const auto part = bytes.first(std::min(bytes.size(), kBatchBytes - batch.size));
        std::ranges::copy(part, batch.buffer.bytes.begin() + static_cast<qsizetype>(batch.size));
        batch.size += part.size();
        bytes = bytes.subspan(part.size());
        if (batch.size == kBatchBytes) {
            HandOver();
        }
    }
}

/// Gives the batch to the thread and waits for an empty one.
void TrackDigest::HandOver()
{
    std::unique_lock lock(mutex_);
    ++handedOver_;
    changed_.notify_all();
    changed_.wait(lock, [this] { return handedOver_ - digested_ < kBatches; });
}

void TrackDigest::End()
{
    if (!thread_.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

QByteArray TrackDigest::Finish()
{
    HandOver();
    End();
    const digest::Sha256Value value = sha256_.Finish();
    return {reinterpret_cast<const char*>(value.data()), static_cast<qsizetype>(value.size())};
}

void TrackDigest::Work()
{
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return isEnding_ || digested_ < handedOver_; });
        if (digested_ == handedOver_) {
            return;
        }
        Batch& batch = *batches_[digested_ % kBatches];
        lock.unlock();
        sha256_.Add(std::span(batch.buffer.bytes).first(batch.size));
        batch.size = 0;
        lock.lock();
        ++digested_;
        changed_.notify_all();
    }
}

} // namespace velmora::mastering
