// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/FileFacts.h"

#include "unicode/FileDescriptor.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

namespace velmora::image {

namespace {

/// Whether this process may read the file. Everybody's files and root's case are told without a
/// call.
bool MayRead(int directory, const char* name, mode_t mode)
{
    static const bool isRoot = ::geteuid() == 0;
    if (isRoot || (mode & 0444U) == 0444) {
        return true;
    }
    return ::faccessat(directory, name, R_OK, AT_EACCESS) == 0;
}

Error LookupFailure(int systemError, Reached reached)
{
    if (reached == Reached::ThroughLink) {
        return {ErrorKind::DanglingLink, {}, systemError};
    }
    if (systemError == ENOENT) {
        return {ErrorKind::NotFound, {}, systemError};
    }
    return {ErrorKind::FileNotOpened, {}, systemError};
}

} // namespace

NodeFacts FactsOf(const struct stat& status, Reached reached)
{
    NodeFacts facts;
    facts.isDirectory = S_ISDIR(status.st_mode);
    facts.size = facts.isDirectory ? 0 : static_cast<std::uint64_t>(status.st_size);
    facts.inode = status.st_ino;
    facts.device = status.st_dev;
    facts.modified
        = {status.st_mtim.tv_sec, static_cast<std::uint32_t>(status.st_mtim.tv_nsec / 1000)};
    facts.mode = static_cast<std::uint16_t>(status.st_mode & 07777U);
    facts.mayBeShared
        = !facts.isDirectory && (status.st_nlink > 1 || reached == Reached::ThroughLink);
    return facts;
}

Result<NodeFacts> Examine(int directory, const char* name, Reached reached)
{
    struct stat status { };
    if (::fstatat(directory, name, &status, 0) != 0) {
        return LookupFailure(errno, reached);
    }
    const bool isFile = S_ISREG(status.st_mode);
    if (!isFile && !S_ISDIR(status.st_mode)) {
        return Error {ErrorKind::SpecialFile};
    }
    if (isFile && !MayRead(directory, name, status.st_mode)) {
        return Error {ErrorKind::FileNotOpened, {}, EACCES};
    }
    return FactsOf(status, reached);
}

int OpenPath(const std::string& path, int flags)
{
    flags |= O_CLOEXEC | O_NOCTTY;
    if (path.size() < PATH_MAX) {
        return ::open(path.c_str(), flags);
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
    return ::openat(base.Get(), path.c_str() + at, flags);
}

} // namespace velmora::image
