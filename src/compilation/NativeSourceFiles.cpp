// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/NativeSourceFiles.h"

#include "image/source/DirectoryReader.h"
#include "image/source/FileFacts.h"
#include "image/source/TreeScanner.h"
#include "runtime/RuntimeError.h"
#include "shell/PathHelpers.h"
#include "text/PathText.h"
#include "unicode/FileDescriptor.h"
#include "unicode/WholeTransfers.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velmora::compilation {

using runtime::RuntimeError;
namespace fs = std::filesystem;

namespace {

constexpr QChar kSeparator = u'\\';

bool IsMissing(int systemError) { return systemError == ENOENT || systemError == ENOTDIR; }

/// What is at a path, links followed. A dangling link exists but can't be read: it gives no value.
/// Errors 53 and 70.
std::optional<struct stat> LookAt(const text::ProgramPath& path)
{
    const text::NativePath native = text::ToNativePath(path);
    struct stat found { };
    if (stat(native.CStr(), &found) == 0) {
        return found;
    }
    const int failure = errno;
    struct stat link { };
    if ((IsMissing(failure) || failure == ELOOP) && lstat(native.CStr(), &link) == 0) {
        return std::nullopt;
    }
    throw RuntimeError(
        IsMissing(failure) ? runtime::error::kFileNotFound : runtime::error::kPermissionDenied);
}

/// A trailing separator would follow a symbolic link.
std::string WithoutSeparator(const text::ProgramPath& path)
{
    const bool isRoot = path.Text().size() == 1;
    return text::ToNativePath(isRoot ? path.Text() : shell::NoTrailingBackslash(path.Text()));
}

/// What is at a path, symbolic links not followed. Errors 53 and 70.
struct stat LookAtItself(const text::ProgramPath& path)
{
    struct stat found { };
    if (lstat(WithoutSeparator(path).c_str(), &found) == 0) {
        return found;
    }
    throw RuntimeError(
        IsMissing(errno) ? runtime::error::kFileNotFound : runtime::error::kPermissionDenied);
}

/// Whether a folder or something else is at a path; no value if nothing is, or it is hidden. Error
/// 70.
std::optional<bool> IsVisibleFolder(const text::ProgramPath& path)
{
    if (path.IsEmpty() || shell::LastFolderName(path.Text()).startsWith(u'.')) {
        return std::nullopt;
    }
    try {
        const std::optional<struct stat> found = LookAt(path);
        return found && S_ISDIR(found->st_mode);
    } catch (const RuntimeError& failure) {
        if (failure.Number() == runtime::error::kFileNotFound) {
            return std::nullopt;
        }
        throw;
    }
}

double SizeOf(const struct stat& found)
{
    return S_ISREG(found.st_mode) ? static_cast<double>(found.st_size) : 0;
}

bool IsHidden(std::string_view name) { return name.starts_with('.'); }

bool SortsBefore(const QString& left, const QString& right)
{
    const int order = left.compare(right, Qt::CaseInsensitive);
    return order == 0 ? left < right : order < 0;
}

[[noreturn]] void ThrowFor(const image::Error& failure)
{
    if (failure.kind == image::ErrorKind::Cancelled) {
        throw RuntimeError(kInterrupted);
    }
    const bool isMissing = failure.kind == image::ErrorKind::NotFound
        || failure.kind == image::ErrorKind::NotADirectory;
    throw RuntimeError(
        isMissing ? runtime::error::kPathNotFound : runtime::error::kPermissionDenied);
}

/// What can't be read counts nothing; any other failure is raised.
FolderContents ContentsOfUnreadable(const image::Error& failure)
{
    const bool isThere = failure.kind == image::ErrorKind::DirectoryUnreadable
        || failure.kind == image::ErrorKind::FileNotOpened;
    if (!isThere) {
        ThrowFor(failure);
    }
    return {};
}

} // namespace

void NativeSourceFiles::RequireGoingOn() const
{
    if (goesOn_ && !goesOn_()) {
        throw RuntimeError(kInterrupted);
    }
}

QStringList NativeSourceFiles::Names(const text::ProgramPath& folder)
{
    return List(folder, [this](std::string_view name) { return takesHidden_ || !IsHidden(name); });
}

QStringList NativeSourceFiles::HiddenNames(const text::ProgramPath& folder)
{
    return takesHidden_ ? QStringList() : List(folder, IsHidden);
}

QStringList NativeSourceFiles::List(const text::ProgramPath& folder,
    const std::function<bool(std::string_view name)>& isWanted) const
{
    const unicode::FileDescriptor directory(
        image::OpenPath(text::ToNativePath(folder).Bytes(), O_RDONLY | O_DIRECTORY));
    if (!directory) {
        if (IsMissing(errno)) {
            return {};
        }
        throw RuntimeError(runtime::error::kPermissionDenied);
    }
    QStringList names;
    image::DirectoryReader reader(directory.Get());
    RequireGoingOn(); // of a folder without entries too
    while (const dirent64* entry = reader.Next()) {
        RequireGoingOn();
        const std::string_view name = entry->d_name;
        if (isWanted(name)) {
            names += text::ToProgramPath(name);
        }
    }
    if (errno != 0) {
        throw RuntimeError(runtime::error::kPermissionDenied);
    }
    std::ranges::sort(names, SortsBefore);
    return names;
}

bool NativeSourceFiles::IsDirectory(const text::ProgramPath& path)
{
    RequireGoingOn();
    return S_ISDIR(LookAtItself(path).st_mode);
}

bool NativeSourceFiles::IsMountRoot(const text::ProgramPath& path)
{
    struct statx found { };
    const text::NativePath native = text::ToNativePath(path);
    return statx(AT_FDCWD, native.CStr(), AT_NO_AUTOMOUNT, 0, &found) == 0
        && (found.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

void NativeSourceFiles::FollowLinks(const text::ProgramPath& source)
{
    auto follower = image::LinkFollower::Of(text::ToNativePath(source).Bytes(), ScanOptions());
    if (!follower) {
        ThrowFor(follower.Failure());
    }
    follower_ = std::move(*follower);
}

image::ScanOptions NativeSourceFiles::ScanOptions() const
{
    image::ScanOptions options;
    if (goesOn_) {
        options.progress = [this](const image::ScanProgress&) { return goesOn_(); };
    }
    return options;
}

FolderContents NativeSourceFiles::ContentsOf(const text::ProgramPath& folder)
{
    image::SourceTree tree;
    auto report = image::ScanFolder(tree,
        image::SourceTree::kRoot,
        text::ToNativePath(folder).Bytes(),
        image::IncludeBase::No,
        ScanOptions());
    if (!report) {
        return ContentsOfUnreadable(report.Failure());
    }
    if (follower_) {
        const auto followed
            = follower_->Follow(tree, image::SourceTree::kRoot, *report, ScanOptions());
        if (!followed) {
            ThrowFor(followed.Failure());
        }
    }
    FolderContents contents {.bytes = static_cast<double>(report->bytes),
        .files = static_cast<qint64>(report->files + report->links),
        .folders = static_cast<qint64>(report->directories)};
    for (const image::Error& passedOver : report->leftOut) {
        // Even an unreadable file has a size.
        struct stat found { };
        if (passedOver.kind == image::ErrorKind::FileNotOpened
            && stat(passedOver.path.c_str(), &found) == 0) {
            contents.bytes += SizeOf(found);
        }
    }
    return contents;
}

double NativeSourceFiles::FileSize(const text::ProgramPath& file)
{
    const struct stat found = LookAtItself(file);
    if (S_ISDIR(found.st_mode)) {
        throw RuntimeError(runtime::error::kFileNotFound);
    }
    return follower_ && S_ISLNK(found.st_mode) ? SizeBehindLink(file) : SizeOf(found);
}

double NativeSourceFiles::SizeBehindLink(const text::ProgramPath& link)
{
    image::SourceTree tree;
    const auto node = tree.AddFile("link", text::ToNativePath(link).Bytes());
    if (!node) {
        ThrowFor(node.Failure());
    }
    image::ScanReport report;
    const auto followed = follower_->FollowLink(tree, *node, report, ScanOptions());
    if (!followed) {
        ThrowFor(followed.Failure());
    }
    return static_cast<double>(report.bytes);
}

text::ProgramPath NativeSourceFiles::BehindLink(const text::ProgramPath& path)
{
    const std::string native = WithoutSeparator(path);
    struct stat found { };
    if (lstat(native.c_str(), &found) != 0 || !S_ISLNK(found.st_mode)) {
        return path;
    }
    std::error_code failure;
    const fs::path target = fs::canonical(native, failure);
    return failure ? text::ProgramPath() : text::ToProgramPath(text::NativePath(target.native()));
}

bool NativeSourceFiles::FindsFile(const text::ProgramPath& path)
{
    const std::optional<bool> isFolder = IsVisibleFolder(path);
    return isFolder && !*isFolder && !path.Text().endsWith(kSeparator);
}

bool NativeSourceFiles::FindsFolder(const text::ProgramPath& path)
{
    return IsVisibleFolder(path).value_or(false);
}

QByteArray NativeSourceFiles::Beginning(const text::ProgramPath& file, qsizetype limit)
{
    const std::optional<struct stat> found = LookAt(file);
    if (!found || !S_ISREG(found->st_mode)) {
        return {};
    }
    const unicode::FileDescriptor opened(
        image::OpenPath(text::ToNativePath(file).Bytes(), O_RDONLY));
    if (!opened) {
        throw RuntimeError(runtime::error::kPermissionDenied);
    }
    QByteArray bytes(limit, '\0');
    const std::span<char> room(bytes.data(), static_cast<std::size_t>(limit));
    const auto read = unicode::ReadWhole(opened.Get(), std::as_writable_bytes(room), 0);
    bytes.truncate(static_cast<qsizetype>(read.value_or(0)));
    return bytes;
}

} // namespace velmora::compilation
