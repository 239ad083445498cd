// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/SharedExtents.h"

#include "image/contents/SourceReader.h"

#include <algorithm>
#include <cerrno>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace velmora::image {

namespace {

/// Bytes; for less, a copy costs no more than the calls.
constexpr std::uint64_t kWorthSharing = std::uint64_t {1024} * 1024;
constexpr std::uint64_t kCloneUnit = 4096; // of the file systems that share

/// Shares the large files of one image.
class Sharing {
public:
    Sharing(const PlanDetails& details, int imageFile)
        : details_(details)
        , imageFile_(imageFile)
        , reader_(details.Source(), details.Files())
    {
    }

    Result<SharedParts> Run()
    {
        for (const Content& content : details_.Files().All()) {
            const std::uint64_t size = details_.Source()[content.node].size;
            if (size < kWorthSharing) {
                continue;
            }
            const Result<int> source = reader_.Open(content);
            if (!source) {
                return source.Failure();
            }
            const std::uint64_t begin = std::uint64_t {content.sector} * kSectorSize;
            if (!Clone(*source, begin, size)) {
                SkipHoles(*source, begin, size);
            }
            const Result<> same = reader_.LookAgain(content, *source);
            if (!same) {
                return same.Failure();
            }
        }
        return SharedParts {std::move(done_), reader_.ChangedFiles()};
    }

private:
    bool Clone(int source, std::uint64_t begin, std::uint64_t size)
    {
        if (!mayClone_ || begin % kCloneUnit != 0) {
            return false;
        }
        file_clone_range range {};
        range.src_fd = source;
        range.src_length
            = size / kCloneUnit * kCloneUnit; // the last piece is copied with its sector's rest
        range.dest_offset = begin;
        if (::ioctl(imageFile_, FICLONERANGE, &range) == 0) {
            done_.push_back({begin, begin + range.src_length});
            return true;
        }
        mayClone_ = errno != EOPNOTSUPP && errno != ENOTTY && errno != ENOSYS;
        return false;
    }

    void SkipHoles(int source, std::uint64_t begin, std::uint64_t size)
    {
        off_t at = 0;
        while (static_cast<std::uint64_t>(at) < size) {
            const off_t hole = ::lseek(source, at, SEEK_HOLE);
            if (hole < 0 || static_cast<std::uint64_t>(hole) >= size) {
                return; // no hole is left
            }
            const off_t data = ::lseek(source, hole, SEEK_DATA);
            // The last byte is always read, so that the file is checked once more.
            const std::uint64_t last = size - 1;
            const std::uint64_t end
                = data < 0 ? last : std::min(static_cast<std::uint64_t>(data), last);
            const auto holeBegin = static_cast<std::uint64_t>(hole);
            if (end > holeBegin) {
                done_.push_back({begin + holeBegin, begin + end});
            }
            at = static_cast<off_t>(end + 1);
        }
    }

    const PlanDetails& details_;
    int imageFile_;
    SourceReader reader_;
    bool mayClone_ = true;
    std::vector<ByteRange> done_;
};

} // namespace

Result<SharedParts> ShareExtents(const PlanDetails& details, int imageFile)
{
    return Sharing(details, imageFile).Run();
}

} // namespace velmora::image
