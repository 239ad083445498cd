// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/ReplaceFile.h"

#include "unicode/FileDescriptor.h"
#include "unicode/WholeTransfers.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <span>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace velmora::unicode {

namespace {

constexpr ::mode_t kUsualRights = 0666; // less what the user's mask takes

/// @param file  none where it could not be opened
bool WriteAndClose(FileDescriptor file, std::string_view content)
{
    return file && WriteOn(file.Get(), std::as_bytes(std::span(content))) && BringToDisk(file.Get())
        && ::close(file.Release()) == 0; // a file system over the network may fail only now
}

/// The place itself, where a link leads to it; what doesn't exist yet is its own place.
std::filesystem::path PlaceOf(const std::filesystem::path& path)
{
    std::error_code none;
    const std::filesystem::path found = std::filesystem::canonical(path, none);
    return none ? path : found;
}

/// @param old  the file that is replaced, whose rights stay; none: there is none
bool WriteBeside(
    const std::filesystem::path& part, const struct ::stat* old, std::string_view content)
{
    FileDescriptor file(
        ::open(part.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUsualRights));
    if (!file) {
        return false;
    }
    const bool hasRights = old == nullptr || ::fchmod(file.Get(), old->st_mode & ALLPERMS) == 0;
    return hasRights && WriteAndClose(std::move(file), content);
}

} // namespace

bool ReplaceFile(const std::filesystem::path& path, std::string_view content)
{
    const std::filesystem::path place = PlaceOf(path);
    struct ::stat old { };
    const bool isThere = ::stat(place.c_str(), &old) == 0;
    if (isThere && !S_ISREG(old.st_mode)) {
        return WriteAndClose(FileDescriptor(::open(place.c_str(), O_WRONLY | O_CLOEXEC)), content);
    }
    const std::filesystem::path part
        = place.parent_path() / ("." + std::to_string(::getpid()) + ".velmora.part");
    if (WriteBeside(part, isThere ? &old : nullptr, content)
        && ::rename(part.c_str(), place.c_str()) == 0) {
        return true;
    }
    const int failure = errno;
    ::unlink(part.c_str());
    errno = failure;
    return false;
}

} // namespace velmora::unicode
