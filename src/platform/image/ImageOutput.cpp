// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/ImageOutput.h"

#include "unicode/WholeTransfers.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <random>
#include <unistd.h>
#include <utility>

namespace velmora::image {

namespace {

constexpr mode_t kMode = 0666; // less what the user's mask takes away

std::string FolderOf(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().native();
    return folder.empty() ? "." : folder;
}

/// Tries names beside a path until one is free. @return the name; empty with errno
std::string WithFreeName(
    const std::string& path, const std::function<bool(const std::string&)>& take)
{
    constexpr int kMostTries = 100;
    std::random_device chance;
    for (int i = 0; i < kMostTries; ++i) {
        std::string name = FolderOf(path) + "/.velmora-" + std::to_string(chance());
        if (take(name)) {
            return name;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return {};
}

/// The path through which an unnamed file can be given a name.
std::string ProcessPath(int file) { return "/proc/self/fd/" + std::to_string(file); }

} // namespace

Error OutputFailure(int systemError, std::string path)
{
    const bool isFull = unicode::IsDiskFull(systemError);
    return {
        isFull ? ErrorKind::DiskFull : ErrorKind::OutputNotWritten, std::move(path), systemError};
}

Result<ImageOutput> ImageOutput::Beside(const std::string& path)
{
    const std::string folder = FolderOf(path);
    unicode::FileDescriptor file(
        ::open(folder.c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, kMode)); // NOLINT(*-signed-bitwise)
    if (file && ::access(ProcessPath(file.Get()).c_str(), F_OK) == 0) {
        return ImageOutput(path, std::move(file), {});
    }
    std::string name = WithFreeName(path, [&file](const std::string& free) {
        file.Reset(::open(free.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kMode));
        return static_cast<bool>(file);
    });
    if (name.empty()) {
        return Error {ErrorKind::OutputNotCreated, path, errno};
    }
    return ImageOutput(path, std::move(file), std::move(name));
}

ImageOutput::ImageOutput(std::string path, unicode::FileDescriptor file, std::string name)
    : path_(std::move(path))
    , file_(std::move(file))
    , name_(std::move(name))
{
}

ImageOutput::ImageOutput(ImageOutput&& other) noexcept
    : path_(std::move(other.path_))
    , file_(std::move(other.file_))
    , name_(std::exchange(other.name_, {}))
{
}

ImageOutput::~ImageOutput()
{
    if (!name_.empty()) {
        ::unlink(name_.c_str());
    }
}

/// Links the file at its place, or under a name of its own beside it if something is there.
bool ImageOutput::GiveName()
{
    const auto link = [this](const std::string& name) {
        return ::linkat(AT_FDCWD,
                   ProcessPath(file_.Get()).c_str(),
                   AT_FDCWD,
                   name.c_str(),
                   AT_SYMLINK_FOLLOW)
            == 0;
    };
    if (link(path_)) {
        return true;
    }
    if (errno == EEXIST) {
        name_ = WithFreeName(path_, link);
    }
    return !name_.empty();
}

Result<> ImageOutput::Keep()
{
    const bool isNamed = unicode::BringToDisk(file_.Get()) && (!name_.empty() || GiveName());
    if (!isNamed || ::close(file_.Release()) != 0) { // some file systems report only here
        return OutputFailure(errno, path_);          // that they are full
    }
    if (!name_.empty()) {
        if (std::rename(name_.c_str(), path_.c_str()) != 0) {
            return OutputFailure(errno, path_);
        }
        name_.clear();
    }
    const unicode::FileDescriptor folder(
        ::open(FolderOf(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !folder || unicode::BringToDisk(folder.Get()) ? Result<> {}
                                                         : OutputFailure(errno, path_);
}

} // namespace velmora::image
