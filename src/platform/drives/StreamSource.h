// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"

#include <atomic>
#include <cstddef>
#include <exception>
#include <vector>

namespace burn {
struct burn_drive;
struct burn_source;
} // namespace burn

namespace velmora::drives {

/// Passes the data to write to the library.
///
/// The library treats a source that fails or ends early as a short one: it pads with zeros and
/// reports success. So a failure is remembered here and stops the drive.
class StreamSource {
public:
    /// @param order  must outlive the source
    StreamSource(const drive::WriteOrder& order, burn::burn_drive* drive);

    /// The library's view of it, with one reference for the caller. Only once.
    burn::burn_source* Make();

    /// What the order's source raised; empty if it didn't.
    std::exception_ptr Failure() const;
    /// Sectors that the library has taken.
    qint64 Delivered() const { return delivered_; }
    /// Is the order's source being read right now?
    bool IsAsked() const { return asked_; }

private:
    static int ReadCallback(burn::burn_source* source, unsigned char* buffer, int size);
    int Read(unsigned char* buffer, int size);
    void Refill();

    const drive::WriteOrder& order_;
    burn::burn_drive* drive_;
    std::vector<std::byte> store_; // what is read ahead, as the library asks for single sectors
    std::size_t taken_ = 0;        // bytes of the store
    qint64 read_ = 0;              // sectors taken from the order's source
    std::atomic<qint64> delivered_ = 0;
    std::exception_ptr failure_; // set before failed_, read after it
    std::atomic<bool> failed_ = false;
    std::atomic<bool> asked_ = false;
};

} // namespace velmora::drives
