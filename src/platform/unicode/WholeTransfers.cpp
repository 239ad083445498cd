// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/WholeTransfers.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

namespace velmora::unicode {

std::optional<std::size_t> ReadWhole(int file, std::span<std::byte> out, std::uint64_t position)
{
    std::size_t done = 0;
    while (done < out.size()) {
        const std::span<std::byte> left = out.subspan(done);
        const ssize_t got
            = ::pread(file, left.data(), left.size(), static_cast<off_t>(position + done));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return std::nullopt;
        }
        if (got == 0) {
            break;
        }
        done += static_cast<std::size_t>(got);
    }
    return done;
}

bool WriteWhole(int file, std::span<const std::byte> bytes, std::uint64_t position)
{
    while (!bytes.empty()) {
        const ssize_t put
            = ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(position));
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put < 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(put));
        position += static_cast<std::uint64_t>(put);
    }
    return true;
}

bool WriteOn(int file, std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const ssize_t put = ::write(file, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put < 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(put));
    }
    return true;
}

namespace {

bool SyncPart(int file, WrittenRange part, unsigned flags)
{
    return ::sync_file_range(
               file, static_cast<off64_t>(part.position), static_cast<off64_t>(part.length), flags)
        == 0;
}

} // namespace

void BeginToBringToDisk(int file, WrittenRange part)
{
    SyncPart(file, part, SYNC_FILE_RANGE_WRITE);
}

bool AwaitOnDisk(int file, WrittenRange part)
{
    return SyncPart(file, part, SYNC_FILE_RANGE_WAIT_BEFORE) || errno == EINVAL || errno == ENOSYS
        || errno == ESPIPE;
}

bool BringToDisk(int file) { return ::fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP; }

bool IsDiskFull(int systemError) { return systemError == ENOSPC || systemError == EDQUOT; }

} // namespace velmora::unicode
