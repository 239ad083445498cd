// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/contents/SourceReader.h"

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

/// Opens the folder that the node's file lies in, unless it is open already, and tells the file's
/// name there.
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
    // A file may have become a pipe since it was scanned: never wait for its other end.
    constexpr int kFlags = O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
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
    return Failure(
        errno == ENOENT ? ErrorKind::NotFound : ErrorKind::FileNotOpened, content, errno);
}

Result<> SourceReader::CheckSize(const Content& content, int file) const
{
    struct stat status { };
    if (::fstat(file, &status) != 0) {
        return Failure(ErrorKind::FileUnreadable, content, errno);
    }
    if (static_cast<std::uint64_t>(status.st_size) != source_[content.node].size) {
        return Failure(ErrorKind::FileChanged, content);
    }
    return {};
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

    // One byte more than the file should have tells whether it has grown, without another call.
    const std::uint64_t wanted = to - from;
    const bool probes = to == start + size && to < window.End();
    const std::span<std::byte> out = window.Part(from, to + (probes ? 1 : 0));
    const std::optional<std::size_t> got = unicode::ReadAtLeast(wanted, *file, out, from - start);
    if (!got) {
        return Failure(ErrorKind::FileUnreadable, content, errno);
    }
    if (*got != wanted) {
        return Failure(ErrorKind::FileChanged, content);
    }
    const bool endsHere = to == start + size;
    return endsHere && !probes ? CheckSize(content, *file) : Result<> {};
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

/// Whoever reads the image in its order finds all sums made. What another reader has passed over is
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
        || ::fstatat(folder_.Get(), name.c_str(), &status, 0) != 0) {
        return Failure(
            errno == ENOENT ? ErrorKind::NotFound : ErrorKind::FileNotOpened, content, errno);
    }
    if (!S_ISREG(status.st_mode) || status.st_size != 0) {
        return Failure(ErrorKind::FileChanged, content);
    }
    return {};
}

/// An empty file has no bytes to read, but it too may have grown since. Each is looked at with the
/// window that shows its place.
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
