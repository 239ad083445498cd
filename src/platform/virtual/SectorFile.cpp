// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/SectorFile.h"

#include "drive/PublishedCodes.h"
#include "unicode/WholeTransfers.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

quint64 ByteOf(qint64 sector) { return static_cast<quint64>(sector * kSectorBytes); }

constexpr mode_t kMode = 0666; // less what the user's mask takes away

bool IsPlainFile(int file)
{
    struct stat status { };
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

runtime::RuntimeError SectorWriteError(int systemError)
{
    const bool isFull = unicode::IsDiskFull(systemError) || systemError == EFBIG;
    return drive::PublishedError(drive::hresult::kWriteError,
        isFull
            ? u"Le disque de l'ordinateur est plein : libérez de la place pour le graveur virtuel."_s
            : u"Le fichier des secteurs du graveur virtuel n'a pas pu être écrit."_s);
}

} // namespace

bool SectorFile::Make(const std::string& path)
{
    const unicode::FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode));
    if (!file && errno != EEXIST) {
        throw SectorWriteError(errno);
    }
    return bool(file);
}

SectorFile::SectorFile(const std::string& path, Mode mode)
{
    // Non-blocking: a pipe would block us until somebody writes into it.
    constexpr int kAlways = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    const int flags = mode == Mode::Read ? O_RDONLY : O_RDWR | O_CREAT;
    file_.Reset(::open(path.c_str(), flags | kAlways, kMode));
    if (!file_ || !IsPlainFile(file_.Get())) {
        throw mode == Mode::Read ? drive::PublishedError(drive::hresult::kImportReadFailure)
                                 : SectorWriteError(file_ ? 0 : errno);
    }
}

void SectorFile::Read(qint64 firstSector, std::span<std::byte> out) const
{
    const std::optional<std::size_t> got
        = unicode::ReadWhole(file_.Get(), out, ByteOf(firstSector));
    if (!got) {
        throw drive::PublishedError(drive::hresult::kImportReadFailure);
    }
    std::ranges::fill(out.subspan(*got), std::byte {0});
}

void SectorFile::Write(qint64 firstSector, std::span<const std::byte> bytes)
{
    if (!unicode::WriteWhole(file_.Get(), bytes, ByteOf(firstSector))) {
        throw SectorWriteError(errno);
    }
}

void SectorFile::WriteZeros(qint64 firstSector, qint64 sectors)
{
    Write(firstSector, std::vector<std::byte>(static_cast<std::size_t>(sectors * kSectorBytes)));
}

void SectorFile::BeginFlush(qint64 firstSector, qint64 sectors) const
{
    unicode::BeginToBringToDisk(file_.Get(), {ByteOf(firstSector), ByteOf(sectors)});
}

void SectorFile::Flush() const
{
    if (!unicode::BringToDisk(file_.Get())) {
        throw SectorWriteError(errno);
    }
}

void SectorFile::Cut(qint64 sectors)
{
    // Truncate only if needed: ext4 flushes a truncated file to the disk when it is closed.
    struct stat status { };
    if (::fstat(file_.Get(), &status) == 0 && status.st_size == sectors * kSectorBytes) {
        return;
    }
    if (::ftruncate(file_.Get(), sectors * kSectorBytes) != 0) {
        throw SectorWriteError(errno);
    }
}

bool SectorFile::IsZero(qint64 firstSector, qint64 sectors) const
{
    std::vector<std::byte> bytes(static_cast<std::size_t>(sectors * kSectorBytes));
    Read(firstSector, bytes);
    return std::ranges::all_of(bytes, [](std::byte byte) { return byte == std::byte {0}; });
}

} // namespace velmora::virtualdrive
