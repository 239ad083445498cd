// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/DiscCheck.h"

#include "drive/SectorSize.h"

#include <algorithm>
#include <memory>

namespace velmora::terminal {

using discfiles::DiscFile;
using discfiles::Extent;

namespace {

constexpr std::uint64_t kStepBytes = std::uint64_t {1} << 20;
constexpr std::uint64_t kBytesOfSector = drive::kSectorBytes;

using TakeBytes = std::function<void(std::span<const std::byte>)>;

/// @return false when it was stopped
bool ReadExtent(const Extent& extent, CarefulReader& reader, const TakeBytes& take)
{
    std::vector<std::byte> buffer;
    for (std::uint64_t at = 0; at < extent.bytes; at += kStepBytes) {
        const std::uint64_t bytes = std::min(kStepBytes, extent.bytes - at);
        buffer.resize((bytes + kBytesOfSector - 1) / kBytesOfSector * kBytesOfSector);
        const auto sector = qint64 {extent.firstSector} + static_cast<qint64>(at / kBytesOfSector);
        if (!reader.Read(sector, buffer)) {
            return false;
        }
        take(std::span(buffer).first(bytes));
    }
    return true;
}

/// Some discs have small files embedded in their file entries.
bool HasPlace(const DiscFile& file)
{
    std::uint64_t bytes = 0;
    for (const Extent& extent : file.extents) {
        bytes += extent.bytes;
    }
    return bytes == file.bytes;
}

bool LieTogether(const DiscFile& one, const DiscFile& other)
{
    return !one.extents.empty() && !other.extents.empty() && one.bytes == other.bytes
        && one.extents.front().firstSector == other.extents.front().firstSector;
}

class FileCheck {
public:
    FileCheck(FileProofs& proofs,
        CarefulReader& reader,
        const CheckProgress& progress,
        const std::string& own)
        : proofs_(proofs)
        , reader_(reader)
        , progress_(progress)
        , own_(own)
    {
    }

    CheckFindings Run(const std::vector<DiscFile>& files)
    {
        for (const DiscFile& file : files) {
            total_ += file.bytes;
        }
        for (auto file = files.begin(); file != files.end() && !reader_.IsStopped();) {
            const auto behind = std::find_if_not(
                file, files.end(), [&](const DiscFile& next) { return LieTogether(*file, next); });
            const auto last = behind == file ? file + 1 : behind;
            CheckNames(std::span(file, last));
            file = last;
        }
        if (!reader_.IsStopped()) {
            for (const std::string& path : proofs_.Missing()) {
                findings_.faultyFiles.push_back({path, FileFault::Missing});
            }
        }
        findings_.isStopped = reader_.IsStopped();
        findings_.unreadable = reader_.Unreadable();
        return std::move(findings_);
    }

private:
    struct Named {
        const DiscFile* file;
        std::unique_ptr<FileProof> proof;
    };

    /// The names of one file.
    void CheckNames(std::span<const DiscFile> names)
    {
        std::vector<Named> known;
        for (const DiscFile& file : names) {
            std::unique_ptr<FileProof> proof = proofs_.Of(file.path);
            if (proof && HasPlace(file)) {
                known.push_back({&file, std::move(proof)});
            } else if (file.path != own_) {
                findings_.undescribed.push_back(file.path);
            }
        }
        const qint64 unreadableBefore = reader_.UnreadableCount();
        const bool isWhole = known.empty() || ReadFile(names.front(), known);
        done_ += names.front().bytes * names.size();
        if (isWhole) {
            Judge(known, reader_.UnreadableCount() > unreadableBefore);
        }
    }

    /// @return false when it was stopped
    bool ReadFile(const DiscFile& file, const std::vector<Named>& known)
    {
        std::uint64_t read = 0;
        const auto take = [&](std::span<const std::byte> bytes) {
            for (const Named& named : known) {
                named.proof->Add(bytes);
            }
            read += bytes.size();
            progress_(done_ + read, total_);
        };
        for (const Extent& extent : file.extents) {
            if (!ReadExtent(extent, reader_, take)) {
                return false;
            }
        }
        findings_.checkedBytes += read;
        return true;
    }

    void Judge(const std::vector<Named>& known, bool isUnreadable)
    {
        for (const Named& named : known) {
            if (isUnreadable) {
                findings_.faultyFiles.push_back({named.file->path, FileFault::Unreadable});
            } else if (!named.proof->IsGood()) {
                findings_.faultyFiles.push_back({named.file->path, FileFault::Different});
            } else {
                ++findings_.goodFiles;
            }
        }
    }

    FileProofs& proofs_;
    CarefulReader& reader_;
    const CheckProgress& progress_;
    const std::string& own_;
    std::uint64_t done_ = 0;
    std::uint64_t total_ = 0;
    CheckFindings findings_;
};

} // namespace

CheckFindings CheckFiles(const discfiles::Listing& listing,
    FileProofs& proofs,
    CarefulReader& reader,
    const CheckProgress& progress,
    const std::string& own)
{
    return FileCheck(proofs, reader, progress, own).Run(listing.files);
}

std::string ContentOf(const DiscFile& file, CarefulReader& reader)
{
    std::string content;
    for (const Extent& extent : file.extents) {
        ReadExtent(extent, reader, [&content](std::span<const std::byte> bytes) {
            content.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        });
    }
    return content;
}

} // namespace velmora::terminal
