// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/FileStream.h"

#include "drive/PublishedCodes.h"
#include "mastering/base/BlockCopy.h"
#include "text/PathText.h"
#include "unicode/Unicode.h"
#include "unicode/WholeTransfers.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace velmora::mastering {

using namespace Qt::StringLiterals;

namespace {

unicode::FileDescriptor OpenForReading(const text::NativePath& path)
{
    const image::Result<image::NodeFacts> facts = image::LookBehind(path.CStr());
    if (facts && facts->kind == image::NodeKind::File) {
        return unicode::FileDescriptor(image::OpenPath(path.Bytes(), O_RDONLY));
    }
    struct stat status { };
    const bool isLink = ::lstat(path.CStr(), &status) == 0 && S_ISLNK(status.st_mode);
    return unicode::FileDescriptor(
        isLink ? image::OpenPath(path.Bytes(), O_PATH | O_NOFOLLOW) : -1);
}

unicode::FileDescriptor OpenForWriting(const text::NativePath& path)
{
    struct stat status { };
    const bool isThere = ::stat(path.CStr(), &status) == 0;
    if (isThere && (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode))) {
        return {};
    }
    // Readable too: the kernel shares or copies ranges only into files that are also open for
    // reading.
    constexpr int kFlags = O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOCTTY;
    constexpr mode_t kMode = 0666; // less what the user's mask takes away
    return unicode::FileDescriptor(::open(path.CStr(), kFlags, kMode));
}

runtime::RuntimeError ReadFailure(const text::NativePath& path)
{
    return drive::PublishedError(drive::hresult::kStreamReadFault,
        u"« %1 » : Lecture du fichier impossible."_s.arg(
            QString::fromStdString(unicode::ReadableText(path.Bytes()))));
}

runtime::RuntimeError StreamWriteError(int systemError)
{
    return drive::PublishedError(unicode::IsDiskFull(systemError)
            ? drive::hresult::kStreamMediumFull
            : drive::hresult::kStreamWriteFault);
}

} // namespace

FileStream::FileStream(
    unicode::FileDescriptor file, text::NativePath path, imapi::FileStreamMode mode)
    : file_(std::move(file))
    , path_(std::move(path))
{
    if (mode == imapi::FileStreamMode::Read) {
        watch_.emplace(Descriptor(), path_.Bytes());
    }
}

std::size_t FileStream::Read(std::span<std::byte> out)
{
    const quint64 size = Size(); // later growth isn't part of it
    const quint64 left = size > position_ ? size - position_ : 0;
    const auto wanted = out.first(static_cast<std::size_t>(std::min<quint64>(out.size(), left)));
    const std::optional<std::size_t> read = unicode::ReadWhole(Descriptor(), wanted, position_);
    if (!read) {
        throw ReadFailure(path_);
    }
    if (watch_) {
        watch_->Look();
    }
    position_ += *read;
    return *read;
}

void FileStream::Write(std::span<const std::byte> bytes)
{
    if (!unicode::WriteWhole(Descriptor(), bytes, position_)) {
        throw errno == EBADF ? drive::PublishedError(drive::hresult::kStreamAccessDenied)
                             : StreamWriteError(errno);
    }
    position_ += bytes.size();
}

std::optional<imapi::StreamFile> FileStream::File() const
{
    return imapi::StreamFile {path_, Descriptor()};
}

quint64 FileStream::Size() const
{
    if (watch_) {
        return watch_->Size();
    }
    struct stat status { };
    if (::fstat(Descriptor(), &status) != 0) {
        throw drive::PublishedError(drive::hresult::kStreamReadFault);
    }
    return static_cast<quint64>(status.st_size);
}

QString FileStream::VolumeName() const
{
    constexpr quint64 kDescriptor = 0x8000; // the primary one of ISO 9660 (ECMA-119 8.4)
    constexpr std::string_view kMark("\1CD001", 6);
    constexpr std::size_t kName = 40;
    constexpr std::size_t kNameLength = 32;
    std::array<std::byte, kName + kNameLength> bytes {};
    const auto read = unicode::ReadWhole(Descriptor(), bytes, kDescriptor);
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (read != bytes.size() || !text.starts_with(kMark)) {
        return {};
    }
    return QString::fromLatin1(text.substr(kName)).trimmed();
}

QList<text::ProgramPath> FileStream::ChangedSources() const
{
    const bool hasChanged = watch_ && watch_->HasChanged();
    return hasChanged ? QList {text::ToProgramPath(path_)} : QList<text::ProgramPath> {};
}

quint64 FileStream::CopyTo(const imapi::StreamRef& destination, quint64 count)
{
    if (!destination) {
        throw drive::PublishedError(drive::hresult::kStreamInvalidPointer);
    }
    return BlockCopy(*this, *destination, count);
}

imapi::StreamRef SHCreateStreamOnFile(const text::ProgramPath& path, imapi::FileStreamMode mode)
{
    text::NativePath nativePath = text::ToNativePath(path);
    const bool isRead = mode == imapi::FileStreamMode::Read;
    unicode::FileDescriptor file = isRead ? OpenForReading(nativePath) : OpenForWriting(nativePath);
    if (!file) {
        return {};
    }
    return std::make_shared<FileStream>(std::move(file), std::move(nativePath), mode);
}

} // namespace velmora::mastering
