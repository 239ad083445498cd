// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/contents/SourceReader.h"

#include "image/source/FileIdentity.h"
#include "unicode/WholeTransfers.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include <optional>

namespace velmora::image {

Error SourceReader::Failure(ErrorKind kind, const Content& content, int systemError) const
{
    return {kind, source_.SourcePath(content.node), systemError};
}

/// Opens the folder that holds the node's file, unless it is open already. @return the file's name
/// there
bool SourceReader::EnterFolder(NodeId node, std::string& name)
{
    if (source_.HasOwnSourcePath(node)) {
        const std::string path = source_.SourcePath(node);
        const std::size_t slash = path.rfind('/');
        name = path.substr(slash + 1); // npos + 1 = 0
        folder_.Reset(slash == std::string::npos
                ? ::open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)
                : OpenPath(path.substr(0, slash + 1), O_PATH | O_DIRECTORY));
        folderNode_ = kNoNode;
        return static_cast<bool>(folder_);
    }
    name = source_.Name(node);
    const NodeId parent = source_[node].parent;
    if (folderNode_ != parent) {
        folder_.Reset(OpenPath(source_.SourcePath(parent), O_PATH | O_DIRECTORY));
        folderNode_ = folder_ ? parent : kNoNode;
    }
    return static_cast<bool>(folder_);
}

int SourceReader::OpenFile(NodeId node)
{
    // A file may have become a pipe since it was scanned: never wait for its other end. A link in
    // its place is not the file, whatever it leads to.
    constexpr int kFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    std::string name;
    return EnterFolder(node, name) ? OpenUnnoticed(folder_.Get(), name.c_str(), kFlags) : -1;
}

Result<int> SourceReader::Open(const Content& content)
{
    if (fileNode_ == content.node) {
        return file_.Get();
    }
    file_.Reset(OpenFile(content.node));
    fileNode_ = file_ ? content.node : kNoNode;
    if (file_) {
        return file_.Get();
    }
    return LookFailure(content, errno);
}

/// Why a file can't be opened or found.
Error SourceReader::LookFailure(const Content& content, int systemError) const
{
    switch (systemError) {
    case ENOENT:
    case ENOTDIR:
        return Failure(ErrorKind::NotFound, content, systemError);
    case ELOOP: // a link
        return Failure(ErrorKind::FileReplaced, content);
    case ENXIO: // a socket
        return Failure(ErrorKind::SpecialFile, content);
    default:
        return Failure(ErrorKind::FileNotOpened, content, systemError);
    }
}

Result<> SourceReader::LookAgain(const Content& content, int file)
{
    struct stat now { };
    if (::fstat(file, &now) != 0) {
        return Failure(ErrorKind::FileUnreadable, content, errno);
    }
    return IsUntouched(source_, content.node, now) ? Result<> {} : LookCloser(content, now);
}

/// What became of a file that was touched. Removing or replacing a file touches it, so its path
/// needn't be checked first.
Result<> SourceReader::LookCloser(const Content& content, const struct stat& now)
{
    std::string name;
    struct stat found { };
    if (!EnterFolder(content.node, name)
        || ::fstatat(folder_.Get(), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0) {
        return LookFailure(content, errno);
    }
    if (!S_ISREG(found.st_mode)) {
        const bool isOfTree = S_ISLNK(found.st_mode) || S_ISDIR(found.st_mode);
        return Failure(isOfTree ? ErrorKind::FileReplaced : ErrorKind::SpecialFile, content);
    }
    if (IsUntouchedButForItsNumber(source_, content.node, now, folder_.Get())) {
        return {};
    }
    if (!IsSameFile(source_, content.node, now) || !IsSameFile(found, now)) {
        return Failure(ErrorKind::FileReplaced, content);
    }
    if (static_cast<std::uint64_t>(now.st_size) < source_[content.node].size) {
        return Failure(ErrorKind::FileChanged, content);
    }
    changed_.insert(content.node);
    return {};
}

std::set<std::string> SourceReader::ChangedFiles() const
{
    std::set<std::string> paths;
    for (const NodeId node : changed_) {
        paths.insert(source_.SourcePath(node));
    }
    return paths;
}

Result<> SourceReader::ReadPart(Window& window, const Content& content)
{
    const std::uint64_t size = source_[content.node].size;
    const std::uint64_t start = content.sector * kSectorSize;
    const std::uint64_t from = std::max(window.Begin(), start);
    const std::uint64_t to = std::min(window.End(), start + size);
    const Result<int> file = Open(content);
    if (!file) {
        return file.Failure();
    }

    const std::optional<std::size_t> got
        = unicode::ReadWhole(*file, window.Part(from, to), from - start);
    const int readError = errno;
    Result<> same = LookAgain(content, *file);
    if (!same) {
        return same;
    }
    if (!got) {
        return Failure(ErrorKind::FileUnreadable, content, readError);
    }
    return *got == to - from ? Result<> {} : Failure(ErrorKind::FileChanged, content);
}

Result<> SourceReader::PutPart(Window& window, const Content& content)
{
    if (sums_ && content.node == source_.MadeFile()) {
        return PutSums(window);
    }
    Result<> read = ReadPart(window, content);
    if (read && sums_) {
        const std::uint64_t start = content.sector * kSectorSize;
        const std::uint64_t from = std::max(window.Begin(), start);
        const std::uint64_t to = std::min(window.End(), start + source_[content.node].size);
        sums_->Take(contents_.NumberOf(content.node), from - start, window.Part(from, to));
    }
    return read;
}

/// A reader that goes through the image in order finds all sums made. What any other has skipped is
/// read here.
Result<> SourceReader::PutSums(Window& window)
{
    constexpr std::uint64_t kPiece = std::uint64_t {256} * 1024;
    std::vector<std::byte> buffer;
    while (const std::optional<SumsFile::Place> missing = sums_->Missing()) {
        const Content& content = contents_.All()[missing->content];
        const std::uint64_t left = source_[content.node].size - missing->byte;
        buffer.resize(std::min(left, kPiece));
        Window part(content.sector * kSectorSize + missing->byte, buffer);
        Result<> read = PutPart(part, content);
        if (!read) {
            return read;
        }
    }
    sums_->Render(window);
    return {};
}

Result<> SourceReader::CheckEmptyFile(const Content& content)
{
    std::string name;
    struct stat status { };
    if (!EnterFolder(content.node, name)
        || ::fstatat(folder_.Get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return LookFailure(content, errno);
    }
    return IsUntouched(source_, content.node, status) ? Result<> {} : LookCloser(content, status);
}

/// An empty file has no bytes to read, but it too may have grown since. Each is checked along with
/// the window that covers its place.
Result<> SourceReader::CheckEmptyFiles(const Window& window)
{
    const std::vector<Content>& all = contents_.All();
    auto content = std::lower_bound(
        all.begin(), all.end(), window.Begin(), [](const Content& c, std::uint64_t place) {
            return c.sector * kSectorSize < place;
        });
    for (; content != all.end() && content->sector * kSectorSize < window.End(); ++content) {
        if (source_[content->node].size != 0) {
            continue;
        }
        const Result<> unchanged = CheckEmptyFile(*content);
        if (!unchanged) {
            return unchanged.Failure();
        }
    }
    return {};
}

Result<> SourceReader::Fill(Window& window, std::uint64_t areaBegin, std::uint64_t areaEnd)
{
    Result<> unchanged = CheckEmptyFiles(window);
    if (!unchanged || !window.Touches(areaBegin, areaEnd)) {
        return unchanged;
    }
    const std::uint64_t end = std::min(areaEnd, window.End());
    std::uint64_t at = std::max(areaBegin, window.Begin());
    const std::vector<Content>& all = contents_.All();
    auto content
        = std::upper_bound(all.begin(), all.end(), at, [](std::uint64_t place, const Content& c) {
              return place < c.sector * kSectorSize;
          });
    if (content != all.begin()) {
        --content;
    }
    for (; content != all.end() && content->sector * kSectorSize < end; ++content) {
        const std::uint64_t contentEnd
            = content->sector * kSectorSize + source_[content->node].size;
        if (contentEnd <= at) {
            continue;
        }
        window.PutZeros(at, content->sector * kSectorSize);
        const Result<> read = PutPart(window, *content);
        if (!read) {
            return read.Failure();
        }
        at = contentEnd;
    }
    if (at < end) {
        window.PutZeros(at, end);
    }
    return {};
}

} // namespace velmora::image
