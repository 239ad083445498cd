// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/FileFacts.h"

#include "image/source/FileSystemKinds.h"
#include "unicode/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace velmora::image {

namespace {

/// Whether this process may read the file. World-readable files and root need no system call.
bool MayRead(int directory, const char* name, mode_t mode)
{
    static const bool isRoot = ::geteuid() == 0;
    if (isRoot || (mode & 0444U) == 0444) {
        return true;
    }
    return ::faccessat(directory, name, R_OK, AT_EACCESS) == 0;
}

Error LookupFailure(int systemError)
{
    return {
        systemError == ENOENT ? ErrorKind::NotFound : ErrorKind::FileNotOpened, {}, systemError};
}

/// Why a file or folder can't be included; no value if it can.
std::optional<Error> Refusal(int directory, const char* name, const struct stat& status)
{
    if (S_ISDIR(status.st_mode)) {
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        return Error {ErrorKind::SpecialFile};
    }
    if (!MayRead(directory, name, status.st_mode)) {
        return Error {ErrorKind::FileNotOpened, {}, EACCES};
    }
    if (MayHideItsSize(status) && TellsNoSizes(directory, name)) {
        return Error {ErrorKind::SizeUnknown};
    }
    return std::nullopt;
}

/// The text of a symbolic link; no value with errno.
std::optional<std::string> TextOfLink(int directory, const char* name)
{
    std::array<char, PATH_MAX> text; // the kernel allows no longer one
    const ssize_t length = ::readlinkat(directory, name, text.data(), text.size());
    if (length < 0) {
        return std::nullopt;
    }
    return std::string(text.data(), static_cast<std::size_t>(length));
}

NodeKind KindOf(mode_t mode)
{
    if (S_ISLNK(mode)) {
        return NodeKind::Link;
    }
    return S_ISDIR(mode) ? NodeKind::Directory : NodeKind::File;
}

} // namespace

std::uint64_t StatusChangeOf(const struct stat& status)
{
    constexpr std::uint64_t kNanoseconds = 1'000'000'000; // in a second
    return static_cast<std::uint64_t>(status.st_ctim.tv_sec) * kNanoseconds
        + static_cast<std::uint64_t>(status.st_ctim.tv_nsec);
}

NodeFacts FactsOf(const struct stat& status)
{
    NodeFacts facts;
    facts.kind = KindOf(status.st_mode);
    const bool isFile = facts.kind == NodeKind::File;
    facts.size = isFile ? static_cast<std::uint64_t>(status.st_size) : 0;
    facts.inode = status.st_ino;
    facts.statusChanged = StatusChangeOf(status);
    facts.device = status.st_dev;
    facts.modified
        = {status.st_mtim.tv_sec, static_cast<std::uint32_t>(status.st_mtim.tv_nsec / 1000)};
    facts.mode = static_cast<std::uint16_t>(status.st_mode & 07777U);
    facts.owner = {status.st_uid, status.st_gid};
    facts.mayBeShared = isFile && status.st_nlink > 1;
    return facts;
}

Result<Found> LookAt(int directory, const char* name)
{
    struct stat status { };
    if (::fstatat(directory, name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return LookupFailure(errno);
    }
    if (!S_ISLNK(status.st_mode)) {
        const std::optional<Error> refusal = Refusal(directory, name, status);
        return refusal ? Result<Found>(*refusal) : Found {FactsOf(status)};
    }
    std::optional<std::string> text = TextOfLink(directory, name);
    if (!text) {
        return Error {ErrorKind::FileUnreadable, {}, errno};
    }
    return Found {FactsOf(status), std::move(*text)};
}

Result<NodeFacts> LookBehind(const char* path)
{
    struct stat status { };
    if (::stat(path, &status) != 0) {
        const int systemError = errno;
        struct stat link { };
        const bool isLink = ::lstat(path, &link) == 0 && S_ISLNK(link.st_mode);
        return isLink ? Error {ErrorKind::DanglingLink, {}, systemError}
                      : LookupFailure(systemError);
    }
    const std::optional<Error> refusal = Refusal(AT_FDCWD, path, status);
    return refusal ? Result<NodeFacts>(*refusal) : FactsOf(status);
}

int OpenUnnoticed(int directory, const char* name, int flags)
{
    const int file = ::openat(directory, name, flags | O_NOATIME);
    return file < 0 && errno == EPERM ? ::openat(directory, name, flags) : file;
}

int OpenPath(const std::string& path, int flags)
{
    flags |= O_CLOEXEC | O_NOCTTY;
    if (path.size() < PATH_MAX) {
        return OpenUnnoticed(AT_FDCWD, path.c_str(), flags);
    }
    unicode::FileDescriptor base; // the part of the path that is open already
    std::size_t at = 0;
    while (path.size() - at >= PATH_MAX) {
        const std::size_t slash = path.rfind('/', at + PATH_MAX - 2);
        const std::string part = path.substr(at, slash - at);
        const int start = base ? base.Get() : AT_FDCWD;
        base.Reset(::openat(start, part.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!base) {
            return -1;
        }
        at = slash + 1;
    }
    return OpenUnnoticed(base.Get(), path.c_str() + at, flags);
}

} // namespace velmora::image
