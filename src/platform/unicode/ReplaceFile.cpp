// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/ReplaceFile.h"

#include "unicode/FileDescriptor.h"
#include "unicode/WholeTransfers.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <span>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace velmora::unicode {

namespace {

/// @param file  none where it could not be opened
bool WriteAndClose(FileDescriptor file, std::string_view content)
{
    return file && WriteOn(file.Get(), std::as_bytes(std::span(content))) && BringToDisk(file.Get())
        && ::close(file.Release()) == 0; // a file system over the network may fail only now
}

/// Takes a file away whose failure is in errno. @return false
bool Discard(const std::string& part)
{
    const int failure = errno;
    ::unlink(part.c_str());
    errno = failure;
    return false;
}

/// What a link leads to, and what isn't a link itself; none for a link that leads nowhere.
std::optional<std::filesystem::path> PlaceOf(const std::filesystem::path& path)
{
    std::error_code none;
    if (!std::filesystem::is_symlink(path, none)) {
        return path;
    }
    const std::filesystem::path found = std::filesystem::canonical(path, none);
    return none ? std::nullopt : std::optional(found);
}

/// The rights of a file that replaces another one, or of one that is new.
::mode_t RightsOf(const struct ::stat* old)
{
    constexpr ::mode_t kUsualRights = 0666; // less what the user's mask takes
    if (old != nullptr) {
        return old->st_mode & ALLPERMS;
    }
    const ::mode_t mask = ::umask(0077); // can only be asked by setting it
    ::umask(mask);
    return kUsualRights & ~mask;
}

/// @param old  the file that is replaced; none: there is none
bool WriteBeside(
    const std::filesystem::path& place, const struct ::stat* old, std::string_view content)
{
    std::string part = place.native() + ".XXXXXX";
    if (!WriteAnew(part, content)) {
        return false;
    }
    // Some file systems give all files the same rights, and let nobody change them.
    const bool hasRights = ::chmod(part.c_str(), RightsOf(old)) == 0 || errno == EPERM;
    return (hasRights && ::rename(part.c_str(), place.c_str()) == 0) || Discard(part);
}

/// Into a device, or a pipe that somebody reads.
bool WriteInto(const std::filesystem::path& place, std::string_view content)
{
    FileDescriptor file(::open(place.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
    return file && ::fcntl(file.Get(), F_SETFL, 0) == 0 && WriteAndClose(std::move(file), content);
}

} // namespace

bool WriteAnew(std::string& path, std::string_view content)
{
    FileDescriptor file(::mkostemp(path.data(), O_CLOEXEC));
    return file && (WriteAndClose(std::move(file), content) || Discard(path));
}

bool ReplaceFile(const std::filesystem::path& path, std::string_view content)
{
    const std::optional<std::filesystem::path> place = PlaceOf(path);
    if (!place) {
        errno = ENOENT;
        return false;
    }
    struct ::stat old { };
    if (::stat(place->c_str(), &old) != 0) {
        return WriteBeside(*place, nullptr, content);
    }
    if (!S_ISREG(old.st_mode)) {
        return WriteInto(*place, content);
    }
    // The folder's rights would do to replace it, but not if it is protected itself.
    return ::faccessat(AT_FDCWD, place->c_str(), W_OK, AT_EACCESS) == 0
        && WriteBeside(*place, &old, content);
}

} // namespace velmora::unicode
