// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/FileWatch.h"

#include "drive/PublishedCodes.h"
#include "mastering/base/ImageErrors.h"

#include <cerrno>
#include <utility>

namespace velmora::mastering {

namespace {

bool IsSame(const timespec& a, const timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool IsUntouched(const struct stat& a, const struct stat& b)
{
    return a.st_size == b.st_size && IsSame(a.st_mtim, b.st_mtim) && IsSame(a.st_ctim, b.st_ctim);
}

} // namespace

FileWatch::FileWatch(int file, std::string path)
    : file_(file)
    , path_(std::move(path))
{
    if (::fstat(file_, &opened_) != 0) {
        throw drive::PublishedError(drive::hresult::kStreamReadFault);
    }
}

void FileWatch::Look()
{
    struct stat now { };
    if (::fstat(file_, &now) != 0 || IsUntouched(now, opened_)) {
        return; // its path too: removing or replacing a file touches it
    }
    if (now.st_size < opened_.st_size) {
        Raise({.kind = image::ErrorKind::FileChanged, .path = path_});
    }
    LookAtPath(now);
    hasChanged_ = true;
}

void FileWatch::LookAtPath(const struct stat& now) const
{
    struct stat found { };
    if (::stat(path_.c_str(), &found) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) {
            Raise({.kind = image::ErrorKind::NotFound, .path = path_});
        }
        return;
    }
    if (found.st_dev != now.st_dev || found.st_ino != now.st_ino) {
        Raise({.kind = image::ErrorKind::FileReplaced, .path = path_});
    }
}

} // namespace velmora::mastering
