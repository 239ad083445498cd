// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "digest/Sha256.h"

#include <QByteArray>
#include <QtGlobal>

#include <array>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <span>
#include <thread>

namespace velmora::mastering {

/// The SHA-256 of bytes that come one after the other. It is made on a thread of its own, so that
/// whoever has the bytes goes on with the next ones meanwhile.
class TrackDigest {
public:
    TrackDigest();
    ~TrackDigest();
    TrackDigest(const TrackDigest&) = delete;
    TrackDigest& operator=(const TrackDigest&) = delete;
    TrackDigest(TrackDigest&&) = delete;
    TrackDigest& operator=(TrackDigest&&) = delete;

    /// Takes a copy of the bytes; waits where the thread has fallen behind. One caller at a time.
    void Add(std::span<const std::byte> bytes);

    /// Ends the thread. Nothing can be added after it.
    /// @return 32 bytes
    QByteArray Finish();

private:
    struct Batch;

    void HandOver();
    void End();
    void Work();

    static constexpr quint64 kBatches = 4;

    digest::Sha256 sha256_; // the thread's, as long as it runs
    std::array<std::unique_ptr<Batch>, kBatches> batches_;
    std::mutex mutex_; // guards the next three
    quint64 handedOver_ = 0;
    quint64 digested_ = 0;
    bool isEnding_ = false;
    std::condition_variable changed_;
    std::thread thread_;
};

} // namespace velmora::mastering
