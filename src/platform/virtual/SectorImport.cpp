// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/SectorImport.h"

#include "mastering/FileSystemImage.h"
#include "virtual/SectorFile.h"
#include "virtual/VirtualErrors.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vector>

namespace velmora::virtualdrive {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kImportSectors = 2048;

std::size_t ReadFully(int file, std::span<std::byte> out, off_t position)
{
    std::size_t done = 0;
    while (done < out.size()) {
        const ssize_t got = ::pread(
            file, out.data() + done, out.size() - done, position + static_cast<off_t>(done));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            throw runtime::RuntimeError(
                runtime::error::kInvalidCall, u"L'image n'a pas pu être lue jusqu'au bout."_s);
        }
        if (got == 0) {
            break;
        }
        done += static_cast<std::size_t>(got);
    }
    return done;
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
    // Without waiting: a pipe would keep us until somebody writes into it.
    const image::FileDescriptor file(
        ::open(image.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) {
        throw runtime::RuntimeError(runtime::error::kFileNotFound);
    }
    const qint64 sectors = SectorsOf(file.Get());
    if (sectors > most) {
        throw DriveError(code::kStreamTooLarge);
    }
    SectorFile out(target, SectorFile::Mode::Write);
    out.Cut(0);
    std::vector<std::byte> piece(static_cast<std::size_t>(kImportSectors * kSectorBytes));
    for (qint64 at = 0; at < sectors; at += kImportSectors) {
        const std::size_t got = ReadFully(file.Get(), piece, at * kSectorBytes);
        out.Write(at, std::span(piece).first(got));
        if (meanwhile) {
            meanwhile();
        }
    }
    out.Cut(sectors);
    return sectors;
}

qint64 MakeSample(const std::string& target, const runtime::Clock& clock)
{
    mastering::FileSystemImage image(clock);
    image.SetFileSystemsToCreate(drive::FsiFileSystems::Iso9660AndJoliet);
    image.SetVolumeName(u"VELMORA"_s);
    image.Root()->AddDirectory(u"Session 1"_s);
    const imapi::ImageResultRef result = image.CreateResultImage();
    const qint64 sectors = result->TotalBlocks();
    std::vector<std::byte> bytes(static_cast<std::size_t>(sectors * kSectorBytes));
    result->ImageStream()->Read(bytes);
    SectorFile out(target, SectorFile::Mode::Write);
    out.Cut(0);
    out.Write(0, bytes);
    return sectors;
}

} // namespace velmora::virtualdrive
