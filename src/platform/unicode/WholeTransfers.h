// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace velmora::unicode {

// The system may transfer less than it is asked for, and a signal may come between: these go on
// until all is done. Positions are bytes from the start of the file, and no transfer moves the
// file's own position.

/// Reads until the buffer is full or the file ends.
/// @return  bytes read, fewer than the buffer has at the end of the file only; none with errno
std::optional<std::size_t> ReadWhole(int file, std::span<std::byte> out, std::uint64_t position);

/// Writes all of the bytes. @return  false with errno
bool WriteWhole(int file, std::span<const std::byte> bytes, std::uint64_t position);

/// A part of a file that was written, in bytes.
struct WrittenRange {
    std::uint64_t position = 0;
    std::uint64_t length = 0;
};

/// Has the system begin to bring a part to the disk that was written. Says nothing: what fails
/// comes out when it is awaited.
void BeginToBringToDisk(int file, WrittenRange part);

/// Waits until all of a part is on the disk that was begun to be brought there. Some files know of
/// no such waiting; they have nothing to wait for.
/// @return  false with errno, once: BringToDisk says nothing more of that failure
bool AwaitOnDisk(int file, WrittenRange part);

/// Has what was written brought to the disk. Some file systems have nothing to bring there.
/// @return  false with errno
bool BringToDisk(int file);

/// Does that errno of a write say that there is no room left, on the disk or for its user?
bool IsDiskFull(int systemError);

} // namespace velmora::unicode
