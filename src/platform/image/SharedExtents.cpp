// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "SharedExtents.h"

#include "source/SourceReader.h"

#include <cerrno>
#include <linux/fs.h>
#include <sys/ioctl.h>

namespace velmora::image {

namespace {

constexpr std::uint64_t kWorthSharing
    = 1024 * 1024;                     // bytes; below it a copy costs no more than the calls
constexpr std::uint64_t kBlock = 4096; // of the file systems that share

enum class Attempt { Done, NotThisFile, NeverHere };

Attempt Clone(int source, int target, std::uint64_t at, std::uint64_t length)
{
    file_clone_range range {};
    range.src_fd = source;
    range.src_length = length;
    range.dest_offset = at;
    if (::ioctl(target, FICLONERANGE, &range) == 0) return Attempt::Done;
    const bool unsupported = errno == EOPNOTSUPP || errno == ENOTTY || errno == ENOSYS;
    return unsupported ? Attempt::NeverHere : Attempt::NotThisFile;
}

} // namespace

Result<std::vector<ByteRange>> ShareExtents(const PlanDetails& details, int imageFile)
{
    std::vector<ByteRange> shared;
    SourceReader reader(details.Source(), details.Files());
    for (const Content& content : details.Files().All()) {
        const std::uint64_t size = details.Source()[content.node].size;
        const std::uint64_t begin = std::uint64_t {content.sector} * kSectorSize;
        if (size < kWorthSharing || begin % kBlock != 0) continue;
        const Result<int> source = reader.Open(content);
        if (!source) return source.Failure();
        const std::uint64_t whole
            = size / kBlock * kBlock; // the last piece is copied with its sector's rest
        const Attempt attempt = Clone(*source, imageFile, begin, whole);
        if (attempt == Attempt::NeverHere) break;
        if (attempt == Attempt::NotThisFile) continue;
        const Result<> unchanged = reader.CheckSize(content, *source);
        if (!unchanged) return unchanged.Failure();
        shared.push_back({begin, begin + whole});
    }
    return shared;
}

} // namespace velmora::image
