// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/SectorFile.h"

#include "virtual/VirtualErrors.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

runtime::RuntimeError WriteFailure(int systemError)
{
    const bool isFull = systemError == ENOSPC || systemError == EDQUOT || systemError == EFBIG;
    return DriveError(code::kWriteError,
        isFull
            ? u"Le disque de l'ordinateur est plein : libérez de la place pour le graveur virtuel."_s
            : u"Le fichier des secteurs du graveur virtuel n'a pas pu être écrit."_s);
}

} // namespace

SectorFile::SectorFile(const std::string& path, Mode mode)
{
    constexpr mode_t kMode = 0666; // less what the user's mask takes away
    const int flags = mode == Mode::Read ? O_RDONLY : O_RDWR | O_CREAT;
    file_.Reset(::open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW, kMode));
    if (!file_) {
        throw mode == Mode::Read ? DriveError(code::kReadFailure) : WriteFailure(errno);
    }
}

void SectorFile::Read(qint64 firstSector, std::span<std::byte> out) const
{
    off_t position = firstSector * kSectorBytes;
    while (!out.empty()) {
        const ssize_t got = ::pread(file_.Get(), out.data(), out.size(), position);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            throw DriveError(code::kReadFailure);
        }
        if (got == 0) {
            std::ranges::fill(out, std::byte {0});
            return;
        }
        out = out.subspan(static_cast<std::size_t>(got));
        position += got;
    }
}

void SectorFile::Write(qint64 firstSector, std::span<const std::byte> bytes)
{
    off_t position = firstSector * kSectorBytes;
    while (!bytes.empty()) {
        const ssize_t put = ::pwrite(file_.Get(), bytes.data(), bytes.size(), position);
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put <= 0) {
            throw WriteFailure(errno);
        }
        bytes = bytes.subspan(static_cast<std::size_t>(put));
        position += put;
    }
}

void SectorFile::WriteZeros(qint64 firstSector, qint64 sectors)
{
    Write(firstSector, std::vector<std::byte>(static_cast<std::size_t>(sectors * kSectorBytes)));
}

void SectorFile::Cut(qint64 sectors)
{
    // A file that was cut to nothing is flushed to the disk when it is closed: not without need.
    struct stat status { };
    if (::fstat(file_.Get(), &status) == 0 && status.st_size == sectors * kSectorBytes) {
        return;
    }
    if (::ftruncate(file_.Get(), sectors * kSectorBytes) != 0) {
        throw WriteFailure(errno);
    }
}

bool SectorFile::IsZero(qint64 firstSector, qint64 sectors) const
{
    std::vector<std::byte> bytes(static_cast<std::size_t>(sectors * kSectorBytes));
    Read(firstSector, bytes);
    return std::ranges::all_of(bytes, [](std::byte byte) { return byte == std::byte {0}; });
}

} // namespace velmora::virtualdrive
