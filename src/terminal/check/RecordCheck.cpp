// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/RecordCheck.h"

#include "drive/SectorSize.h"
#include "image/names/VolumeNames.h"
#include "mastering/comparison/FileDigests.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace velmora::terminal {

using mastering::BytesOf;
using mastering::PieceDigests;
using records::BurnRecord;
using records::RecordedFile;

namespace {

using SectorKey = std::pair<qint64, qint64>; // the first of some sectors, and their number

constexpr qint64 kPieceSectors = BurnRecord::kPieceBytes / drive::kSectorBytes;

QByteArray DigestOfPiece(const BurnRecord& record, qint64 piece)
{
    return record.pieces.sliced(piece * BurnRecord::kDigestBytes, BurnRecord::kDigestBytes);
}

std::size_t BytesOfSectors(qint64 sectors)
{
    return static_cast<std::size_t>(sectors * drive::kSectorBytes);
}

/// Places of the files in the recording.
std::vector<imapi::FileExtent> ExtentsOf(const BurnRecord& record)
{
    std::vector<imapi::FileExtent> extents;
    for (const RecordedFile& file : record.files) {
        extents.push_back({{},
            static_cast<quint64>((file.firstSector - record.firstSector) * drive::kSectorBytes),
            file.bytes});
    }
    return extents;
}

qint64 LastSectorOf(const RecordedFile& file)
{
    const auto bytes = static_cast<qint64>(file.bytes);
    return file.firstSector + (bytes + drive::kSectorBytes - 1) / drive::kSectorBytes - 1;
}

bool Touches(const std::vector<SectorRange>& ranges, qint64 first, qint64 last)
{
    return std::ranges::any_of(ranges,
        [&](const SectorRange& range) { return range.first <= last && range.last >= first; });
}

class RecordCheck {
public:
    RecordCheck(const BurnRecord& record, CarefulReader& reader, const CheckProgress& progress)
        : record_(record)
        , reader_(reader)
        , progress_(progress)
        , files_(ExtentsOf(record))
    {
    }

    CheckFindings Run()
    {
        for (qint64 done = 0; done < record_.sectors && !reader_.IsStopped();
             done += kPieceSectors) {
            CheckPiece(done);
        }
        findings_.isStopped = reader_.IsStopped();
        findings_.unreadable = reader_.Unreadable();
        JudgeFiles();
        JudgePieces();
        return std::move(findings_);
    }

private:
    void CheckPiece(qint64 firstOfRecording)
    {
        const qint64 sectors = std::min(kPieceSectors, record_.sectors - firstOfRecording);
        buffer_.resize(BytesOfSectors(sectors));
        const qint64 first = record_.firstSector + firstOfRecording;
        if (!reader_.Read(first, buffer_)) {
            return;
        }
        files_.Add(buffer_);
        if (BytesOf(PieceDigests::Of(buffer_))
            != DigestOfPiece(record_, firstOfRecording / kPieceSectors)) {
            hurtPieces_.push_back({first, first + sectors - 1});
        }
        findings_.checkedBytes += buffer_.size();
        progress_(findings_.checkedBytes,
            static_cast<std::uint64_t>(record_.sectors * drive::kSectorBytes));
    }

    void JudgeFiles()
    {
        for (std::size_t i = 0; i < files_.Digests().size(); ++i) {
            const RecordedFile& file = record_.files[i];
            const SectorRange place {file.firstSector, LastSectorOf(file)};
            if (Touches(findings_.unreadable, place.first, place.last)) {
                findings_.faultyFiles.push_back({file.path, FileFault::Unreadable});
                hurtPlaces_.push_back(place);
            } else if (BytesOf(files_.Digests()[i]) != file.digest) {
                findings_.faultyFiles.push_back({file.path, FileFault::Different});
                hurtPlaces_.push_back(place);
            } else {
                ++findings_.goodFiles;
            }
        }
    }

    /// A piece is damaged outside the files if no damaged file explains it.
    void JudgePieces()
    {
        for (const SectorRange& piece : hurtPieces_) {
            if (!Touches(hurtPlaces_, piece.first, piece.last)
                && !Touches(findings_.unreadable, piece.first, piece.last)) {
                Append(findings_.faultyStructure, piece);
            }
        }
    }

    const BurnRecord& record_;
    CarefulReader& reader_;
    const CheckProgress& progress_;
    mastering::FileDigests files_;
    std::vector<std::byte> buffer_;
    std::vector<SectorRange> hurtPieces_;
    std::vector<SectorRange> hurtPlaces_; // of damaged files
    CheckFindings findings_;
};

/// Does the disc have what that burn wrote, at its beginning, in its middle or at its end? A
/// damaged disc has it at one of them.
bool IsDiscOf(const BurnRecord& record, SectorSource& source, std::map<SectorKey, QByteArray>& read)
{
    const qint64 pieces = record.pieces.size() / BurnRecord::kDigestBytes;
    return std::ranges::any_of(std::array {qint64 {0}, pieces / 2, pieces - 1}, [&](qint64 piece) {
        const qint64 first = piece * kPieceSectors;
        const qint64 sectors = std::min(kPieceSectors, record.sectors - first);
        const auto [digest, isNew] = read.try_emplace({record.firstSector + first, sectors});
        std::vector<std::byte> bytes(isNew ? BytesOfSectors(sectors) : 0);
        if (isNew && source.Read(record.firstSector + first, bytes) == mastering::ReadEnd::Read) {
            digest->second = BytesOf(PieceDigests::Of(bytes));
        }
        return digest->second == DigestOfPiece(record, piece);
    });
}

/// Each file system has a disc's name in its own form.
bool IsSameName(const QString& one, const std::string& other)
{
    return !other.empty()
        && image::VolumeNameIso9660(one.toStdString()) == image::VolumeNameIso9660(other);
}

} // namespace

CheckFindings CheckByRecord(
    const BurnRecord& record, CarefulReader& reader, const CheckProgress& progress)
{
    return RecordCheck(record, reader, progress).Run();
}

std::optional<int> FindRecord(
    const records::BurnRecords& records, SectorSource& source, const std::string& volume)
{
    std::map<SectorKey, QByteArray> read;
    std::optional<int> byName;
    QList<int> numbers = records.Numbers();
    std::ranges::reverse(numbers);
    for (const int number : numbers) {
        const std::optional<BurnRecord> record = records.Read(number);
        if (record && IsDiscOf(*record, source, read)) {
            return number;
        }
        if (record && !byName && IsSameName(record->volume, volume)) {
            byName = number;
        }
    }
    return byName;
}

bool IsOtherDisc(const BurnRecord& record,
    const records::BurnRecords& records,
    SectorSource& source,
    const std::string& volume)
{
    std::map<SectorKey, QByteArray> read;
    if (IsDiscOf(record, source, read)) {
        return false;
    }
    const bool hasOtherName = !volume.empty() && !IsSameName(record.volume, volume);
    return hasOtherName || FindRecord(records, source, "");
}

} // namespace velmora::terminal
