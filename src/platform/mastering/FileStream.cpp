// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/FileStream.h"

#include "drive/PublishedCodes.h"
#include "mastering/BlockCopy.h"
#include "text/PathText.h"
#include "unicode/WholeTransfers.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <utility>

namespace velmora::mastering {

namespace {

unicode::FileDescriptor OpenForReading(const std::string& path)
{
    const image::Result<image::NodeFacts> facts
        = image::Examine(AT_FDCWD, path.c_str(), image::Reached::Directly);
    if (!facts || facts->isDirectory) {
        return {};
    }
    return unicode::FileDescriptor(image::OpenPath(path, O_RDONLY));
}

unicode::FileDescriptor OpenForWriting(const std::string& path)
{
    struct stat status { };
    const bool isThere = ::stat(path.c_str(), &status) == 0;
    if (isThere && (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode))) {
        return {};
    }
    // Readable too: the kernel shares or copies ranges only between files that it may read back.
    constexpr int kFlags = O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOCTTY;
    constexpr mode_t kMode = 0666; // less what the user's mask takes away
    return unicode::FileDescriptor(::open(path.c_str(), kFlags, kMode));
}

runtime::RuntimeError WriteFailure(int systemError)
{
    return drive::PublishedError(unicode::IsDiskFull(systemError)
            ? drive::hresult::kStreamMediumFull
            : drive::hresult::kStreamWriteFault);
}

} // namespace

FileStream::FileStream(unicode::FileDescriptor file, std::string nativePath)
    : file_(std::move(file))
    , nativePath_(std::move(nativePath))
{
}

std::size_t FileStream::Read(std::span<std::byte> out)
{
    const std::optional<std::size_t> read = unicode::ReadWhole(Descriptor(), out, position_);
    if (!read) {
        throw drive::PublishedError(drive::hresult::kStreamReadFault);
    }
    position_ += *read;
    return *read;
}

void FileStream::Write(std::span<const std::byte> bytes)
{
    if (!unicode::WriteWhole(Descriptor(), bytes, position_)) {
        throw errno == EBADF ? drive::PublishedError(drive::hresult::kStreamAccessDenied)
                             : WriteFailure(errno);
    }
    position_ += bytes.size();
}

std::optional<imapi::StreamFile> FileStream::File() const
{
    return imapi::StreamFile {nativePath_, Descriptor()};
}

quint64 FileStream::Size() const
{
    struct stat status { };
    if (::fstat(Descriptor(), &status) != 0) {
        throw drive::PublishedError(drive::hresult::kStreamReadFault);
    }
    return static_cast<quint64>(status.st_size);
}

quint64 FileStream::CopyTo(const imapi::StreamRef& destination, quint64 count)
{
    if (!destination) {
        throw drive::PublishedError(drive::hresult::kStreamInvalidPointer);
    }
    return BlockCopy(*this, *destination, count);
}

imapi::StreamRef SHCreateStreamOnFile(const QString& path, imapi::FileStreamMode mode)
{
    std::string nativePath = text::ToNativePath(path);
    const bool isRead = mode == imapi::FileStreamMode::Read;
    unicode::FileDescriptor file = isRead ? OpenForReading(nativePath) : OpenForWriting(nativePath);
    if (!file) {
        return {};
    }
    return std::make_shared<FileStream>(std::move(file), std::move(nativePath));
}

} // namespace velmora::mastering
