// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/SectorImport.h"

#include "drive/PublishedCodes.h"
#include "unicode/FileDescriptor.h"
#include "unicode/WholeTransfers.h"
#include "virtual/SectorFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <span>
#include <vector>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kImportSectors = 2048;

std::span<const std::byte> ReadPiece(int file, std::span<std::byte> piece, qint64 firstSector)
{
    const std::optional<std::size_t> got
        = unicode::ReadWhole(file, piece, static_cast<quint64>(firstSector * kSectorBytes));
    if (!got) {
        throw runtime::RuntimeError(
            runtime::error::kInvalidCall, u"L'image n'a pas pu être lue jusqu'au bout."_s);
    }
    return piece.first(*got);
}

qint64 SectorsOf(int file)
{
    struct stat status { };
    const bool isFile = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    const qint64 sectors = isFile ? (status.st_size + kSectorBytes - 1) / kSectorBytes : 0;
    if (sectors == 0) {
        throw runtime::RuntimeError(runtime::error::kInvalidCall,
            u"Ce n'est pas une image de disque : donnez un fichier qui n'est pas vide."_s);
    }
    return sectors;
}

} // namespace

qint64 ImportImage(const std::string& image,
    const std::string& target,
    qint64 most,
    const std::function<void()>& meanwhile)
{
    // Non-blocking: a pipe would block us until somebody writes into it.
    const unicode::FileDescriptor file(
        ::open(image.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) {
        throw runtime::RuntimeError(runtime::error::kFileNotFound);
    }
    const qint64 sectors = SectorsOf(file.Get());
    if (sectors > most) {
        throw drive::PublishedError(drive::hresult::kStreamTooLarge);
    }
    SectorFile out(target, SectorFile::Mode::Write);
    out.Cut(0);
    std::vector<std::byte> piece(static_cast<std::size_t>(kImportSectors * kSectorBytes));
    for (qint64 at = 0; at < sectors; at += kImportSectors) {
        out.Write(at, ReadPiece(file.Get(), piece, at));
        if (meanwhile) {
            meanwhile();
        }
    }
    out.Cut(sectors);
    return sectors;
}

} // namespace velmora::virtualdrive
