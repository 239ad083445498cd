// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/ImageFile.h"

#include "image/ImageOutput.h"
#include "image/ImageStream.h"
#include "image/SharedExtents.h"
#include "image/base/Workers.h"
#include "image/source/FileFacts.h"
#include "unicode/FileDescriptor.h"
#include "unicode/PieceBuffer.h"
#include "unicode/WholeTransfers.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace velmora::image {

namespace {

/// Bytes; small enough for the processor's cache, so that what was read is still there when it is
/// written.
constexpr std::uint64_t kPiece = std::uint64_t {512} * 1024;

/// Bytes that are written but not yet on the disk: about a second's work for a slow disk.
constexpr std::uint64_t kMostUnderWay = std::uint64_t {16} * 1024 * 1024;

/// Makes an image file with several threads: each takes the next piece, fills it and writes it. The
/// layout is known, so the order in which pieces are done does not matter.
class ImageCopy {
public:
    ImageCopy(const ImagePlan& plan, int file, const CopyOptions& options, SharedParts shared)
        : plan_(plan)
        , file_(file)
        , options_(options)
        , shared_(std::move(shared.ranges))
        , report_ {std::move(shared.changedFiles)}
    {
    }

    Result<CopyReport> Run()
    {
        RunWorkers(
            ThreadCount(options_.threads),
            [this] { Work(); },
            [this] { Tell(); },
            [this] { stopped_ = true; });
        Tell();
        const std::lock_guard lock(mutex_);
        return failure_ ? Result<CopyReport>(std::move(report_)) : failure_.Failure();
    }

private:
    void Work()
    {
        ImageStream stream(plan_);
        const auto buffer = std::make_unique_for_overwrite<unicode::PieceBuffer<kPiece>>();
        while (!stopped_) {
            const std::uint64_t begin = nextPiece_.fetch_add(kPiece);
            if (begin >= plan_.Bytes()) {
                break;
            }
            const std::uint64_t end = std::min(begin + kPiece, plan_.Bytes());
            const Result<> copied = CopyUnshared({begin, end}, stream, buffer->bytes.data());
            if (!copied) {
                Fail(copied.Failure());
            }
            bytesDone_ += end - begin;
        }
        const std::lock_guard lock(mutex_);
        report_.changedFiles.merge(stream.ChangedFiles());
    }

    /// Copies the parts of a piece that aren't already shared with their source.
    Result<> CopyUnshared(ByteRange piece, ImageStream& stream, std::byte* buffer)
    {
        auto shared = std::lower_bound(shared_.begin(),
            shared_.end(),
            piece.begin,
            [](const ByteRange& range, std::uint64_t at) { return range.end <= at; });
        for (; shared != shared_.end() && shared->begin < piece.end; ++shared) {
            const Result<> copied = Copy({piece.begin, shared->begin}, stream, buffer);
            if (!copied) {
                return copied.Failure();
            }
            piece.begin = shared->end;
        }
        return Copy(piece, stream, buffer);
    }

    Result<> Copy(ByteRange range, ImageStream& stream, std::byte* buffer)
    {
        if (range.begin >= range.end) {
            return {};
        }
        const std::span bytes(buffer, range.end - range.begin);
        const Result<> read = stream.Read(range.begin, bytes);
        return read ? Write(range.begin, bytes) : read;
    }

    Result<> Write(std::uint64_t offset, std::span<const std::byte> bytes) const
    {
        if (!unicode::WriteWhole(file_, bytes, offset)) {
            return OutputFailure(errno);
        }
        unicode::BeginToBringToDisk(file_, {offset, bytes.size()});
        return AwaitFormer(offset);
    }

    /// Waits for what was written a while ago, so that a slow disk sets the pace: progress is true
    /// and a stop takes effect soon. Otherwise the system buffers gigabytes, and the end has to
    /// wait for them.
    Result<> AwaitFormer(std::uint64_t offset) const
    {
        if (offset < kMostUnderWay) {
            return {};
        }
        const bool isOnDisk = unicode::AwaitOnDisk(file_, {offset - kMostUnderWay, kPiece});
        return isOnDisk ? Result<> {} : OutputFailure(errno);
    }

    void Fail(const Error& error)
    {
        const std::lock_guard lock(mutex_);
        if (!stopped_) {
            failure_ = error; // the first one counts
        }
        stopped_ = true;
    }

    void Tell()
    {
        if (options_.progress && !stopped_ && !options_.progress(bytesDone_)) {
            Fail({ErrorKind::Cancelled});
        }
    }

    const ImagePlan& plan_;
    int file_;
    const CopyOptions& options_;
    std::vector<ByteRange> shared_;
    std::atomic<std::uint64_t> nextPiece_ = 0;
    std::atomic<std::uint64_t> bytesDone_ = 0;
    std::atomic<bool> stopped_ = false;
    std::mutex mutex_;
    Result<> failure_;
    CopyReport report_;
};

/// Gives the file its size; unwritten parts then read as zeros. A file that is empty already is not
/// truncated: ext4 would take that for a replacement and write everything to the disk before it is
/// closed.
bool Resize(int file, std::uint64_t bytes)
{
    struct stat status { };
    if (::fstat(file, &status) != 0 || (status.st_size != 0 && ::ftruncate(file, 0) != 0)) {
        return false;
    }
    return ::ftruncate(file, static_cast<off_t>(bytes)) == 0;
}

/// Bytes that the file takes on the disk. A file system without holes, such as FAT, allocates a
/// file's full size at once.
std::uint64_t TakenBytes(int file)
{
    constexpr std::uint64_t kBlock = 512; // of st_blocks, everywhere
    struct stat status { };
    return ::fstat(file, &status) == 0 ? static_cast<std::uint64_t>(status.st_blocks) * kBlock : 0;
}

std::uint64_t SumOf(const std::vector<ByteRange>& ranges)
{
    std::uint64_t bytes = 0;
    for (const ByteRange& range : ranges) {
        bytes += range.end - range.begin;
    }
    return bytes;
}

/// Whether the file system has room for this many more bytes. If it reports no figures, writing
/// will tell.
Result<> RequireRoom(int file, std::uint64_t needed)
{
    struct statvfs volume { };
    if (::fstatvfs(file, &volume) != 0 || volume.f_blocks == 0) {
        return {};
    }
    const fsblkcnt_t blocks = ::geteuid() == 0 ? volume.f_bfree : volume.f_bavail;
    const std::uint64_t room = std::uint64_t {blocks} * volume.f_frsize;
    if (room >= needed) {
        return {};
    }
    return Error {ErrorKind::DiskFull, {}, 0, needed - room};
}

} // namespace

Result<CopyReport> CopyTo(const ImagePlan& plan, int fileDescriptor, const CopyOptions& options)
{
    if (!Resize(fileDescriptor, options.grows ? 0 : plan.Bytes())) {
        return OutputFailure(errno);
    }
    const std::uint64_t taken = TakenBytes(fileDescriptor);
    const bool makesSums = plan.Details().Sums() != nullptr; // of all bytes, in order
    Result<SharedParts> shared
        = makesSums ? SharedParts {} : ShareExtents(plan.Details(), fileDescriptor);
    if (!shared) {
        return shared.Failure();
    }
    const std::uint64_t done = taken + SumOf(shared->ranges);
    const Result<> hasRoom
        = RequireRoom(fileDescriptor, plan.Bytes() - std::min(done, plan.Bytes()));
    if (!hasRoom) {
        return hasRoom.Failure();
    }
    CopyOptions how = options;
    how.threads = makesSums ? 1 : options.threads;
    return ImageCopy(plan, fileDescriptor, how, std::move(*shared)).Run();
}

Result<CopyReport> StreamTo(const ImagePlan& plan, int fileDescriptor, const CopyOptions& options)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds kBetweenReports(40);
    ImageStream stream(plan);
    const auto buffer = std::make_unique_for_overwrite<unicode::PieceBuffer<kPiece>>();
    Clock::time_point nextReport = Clock::now();
    for (std::uint64_t at = 0; at < plan.Bytes();) {
        if (options.progress && Clock::now() >= nextReport) {
            nextReport = Clock::now() + kBetweenReports;
            if (!options.progress(at)) {
                return Error {ErrorKind::Cancelled};
            }
        }
        const auto piece = std::span(buffer->bytes).first(std::min(kPiece, plan.Bytes() - at));
        const Result<> read = stream.Read(at, piece);
        if (!read) {
            return read.Failure();
        }
        if (!unicode::WriteOn(fileDescriptor, piece)) {
            return OutputFailure(errno);
        }
        at += piece.size();
    }
    return CopyReport {stream.ChangedFiles()};
}

Result<CopyReport> WriteImageFile(
    const ImagePlan& plan, const std::string& path, const CopyOptions& options)
{
    Result<ImageOutput> output = ImageOutput::Beside(path);
    if (!output) {
        return output.Failure();
    }
    if (options.partialFile) {
        options.partialFile(output->Name());
    }
    Result<CopyReport> copied = CopyTo(plan, output->Get(), options);
    if (copied) {
        const Result<> kept = output->Keep();
        return kept ? std::move(copied) : kept.Failure();
    }
    Error failure = copied.Failure();
    if (failure.path.empty()) {
        failure.path = path;
    }
    return failure;
}

} // namespace velmora::image
