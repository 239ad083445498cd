// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace velmora::unicode {

// The system may transfer less than requested, and a signal may interrupt it: these functions
// continue until everything is done. Offsets are bytes from the start of the file, and only WriteOn
// moves the file's own position.

/// Reads until the buffer is full or the file ends.
/// @return bytes read, fewer than the buffer holds only at the end of the file; none with errno
std::optional<std::size_t> ReadWhole(int file, std::span<std::byte> out, std::uint64_t position);

/// Writes all of the bytes. @return  false with errno
bool WriteWhole(int file, std::span<const std::byte> bytes, std::uint64_t position);

/// Writes all of the bytes at the file's own position, as into a pipe. @return false with errno
bool WriteOn(int file, std::span<const std::byte> bytes);

/// A part of a file that was written, in bytes.
struct WrittenRange {
    std::uint64_t position = 0;
    std::uint64_t length = 0;
};

/// Makes the system start to flush a written part to the disk. Failures show only in the call that
/// waits.
void BeginToBringToDisk(int file, WrittenRange part);

/// Waits until a part whose flush was started is on the disk. Some kinds of file don't support
/// that; they have nothing to wait for.
/// @return false with errno, once: BringToDisk won't report that failure again
bool AwaitOnDisk(int file, WrittenRange part);

/// Flushes what was written to the disk. Some file systems have nothing to flush.
/// @return  false with errno
bool BringToDisk(int file);

/// Does that errno of a write mean that the disk is full or the user's quota used up?
bool IsDiskFull(int systemError);

} // namespace velmora::unicode
