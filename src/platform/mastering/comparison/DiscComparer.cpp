// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/comparison/DiscComparer.h"

#include "drive/SectorSize.h"
#include "mastering/base/WriteTerms.h"
#include "mastering/comparison/SlowReading.h"
#include "runtime/ResumeNext.h"

#include <algorithm>
#include <cstring>
#include <set>

namespace velmora::mastering {

using namespace Qt::StringLiterals;
using drive::kSectorBytes;
using imapi::ComparisonEnd;

namespace {

constexpr qint64 kPieceSectors = PieceDigests::kPieceBytes / kSectorBytes;
constexpr qint64 kStepSectors = 4 * kPieceSectors;
constexpr qint64 kBlockSectors = 32; // an error correction block of Blu-ray, two of DVD

std::size_t BytesOf(qint64 sectors) { return static_cast<std::size_t>(sectors * kSectorBytes); }

/// Sectors that hold data on both discs, and how many of them hold the same data.
struct Likeness {
    qint64 told = 0;
    qint64 same = 0;
};

bool HasContent(std::span<const std::byte> sector)
{
    return std::ranges::any_of(sector, [](std::byte byte) { return byte != std::byte {}; });
}

void AddLikeness(
    Likeness& likeness, std::span<const std::byte> one, std::span<const std::byte> other)
{
    for (; !one.empty(); one = one.subspan(BytesOf(1)), other = other.subspan(BytesOf(1))) {
        const auto first = one.first(BytesOf(1));
        const auto second = other.first(BytesOf(1));
        if (HasContent(first) && HasContent(second)) {
            ++likeness.told;
            likeness.same += std::ranges::equal(first, second) ? 1 : 0;
        }
    }
}

} // namespace

DiscComparer::DiscComparer(WrittenTrack& track, imapi::IStream& source, RecordingReader& reader)
    : track_(track)
    , pieces_(track.Pieces())
    , source_(source)
    , reader_(reader)
{
    result_.sectors = track.Sectors();
}

imapi::DiscComparison DiscComparer::Run()
{
    try {
        CompareAll();
    } catch (const runtime::RuntimeError& failure) {
        result_.cause = failure.Description();
    }
    if (!result_.places.empty() && !reader_.HasRead()) {
        // For any other reason the drive can't tell a good disc from a bad one.
        ForgetFindings(reader_.WhyUnreadable());
    } else if (!result_.places.empty() && IsKnownAsOther()) {
        ForgetFindings(u"Le disque du lecteur n'est pas celui qui vient d'être gravé."_s);
    }
    result_.end = End();
    result_.sameSectors = result_.places.empty()
        ? done_
        : result_.places.front().firstSector - track_.FirstSector();
    if (result_.end == ComparisonEnd::Same) {
        result_.sha256 = track_.Sha256();
    }
    return result_;
}

/// A drive that fails now can't take back what it found.
bool DiscComparer::IsKnownAsOther()
{
    bool isOther = false;
    runtime::ResumeNext([this, &isOther] { isOther = IsOtherDisc(); });
    return isOther;
}

/// Nothing was compared, as it turns out.
void DiscComparer::ForgetFindings(const QString& cause)
{
    result_ = {.sectors = track_.Sectors(), .cause = cause};
    done_ = 0;
}

/// Is next to nothing as it was written, where discs differ from each other? However a disc is
/// damaged, most of it stays unchanged, or can't be read.
bool DiscComparer::IsOtherDisc()
{
    constexpr qint64 kFewest = 16;    // sectors needed for a verdict
    constexpr qint64 kSameOfHurt = 4; // at least one in this many
    const qint64 pieces = (track_.Sectors() + kPieceSectors - 1) / kPieceSectors;
    Likeness likeness;
    for (const qint64 piece : std::set {qint64 {0}, pieces / 2, pieces - 1}) {
        const std::vector<std::byte> written = MadeAnew(piece);
        std::vector<std::byte> read(written.size());
        if (written.empty()
            || reader_.Read(track_.FirstSector() + piece * kPieceSectors, read) != ReadEnd::Read) {
            return false;
        }
        AddLikeness(likeness, written, read);
    }
    return likeness.told >= kFewest && likeness.same * kSameOfHurt < likeness.told;
}

ComparisonEnd DiscComparer::End() const
{
    if (!result_.places.empty()) {
        return ComparisonEnd::Hurt;
    }
    if (done_ == track_.Sectors()) {
        return ComparisonEnd::Same;
    }
    return reader_.IsStopped() ? ComparisonEnd::Stopped : ComparisonEnd::Impossible;
}

void DiscComparer::CompareAll()
{
    reader_.TakeDisc();
    while (!IsOver()) {
        CompareStep();
    }
}

/// A disc that is damaged all over takes hours and tells no more than its first damaged places.
bool DiscComparer::IsOver()
{
    constexpr int kMostHurtPieces = 64;
    constexpr double kMostSecondsLost = 120;
    if (reader_.IsStopped() || done_ == track_.Sectors()) {
        return true;
    }
    result_.isCutShort
        = hurtPieces_ >= kMostHurtPieces || reader_.SecondsLost() >= kMostSecondsLost;
    return result_.isCutShort;
}

void DiscComparer::CompareStep()
{
    const qint64 count = std::min(kStepSectors, track_.Sectors() - done_);
    read_.resize(BytesOf(count));
    const ReadEnd end = reader_.Read(track_.FirstSector() + done_, read_);
    if (end == ReadEnd::Stopped) {
        return;
    }
    const bool isRead = end == ReadEnd::Read;
    for (qint64 sector = 0; sector < count && !reader_.IsStopped(); sector += kPieceSectors) {
        const qint64 piece = (done_ + sector) / kPieceSectors;
        const auto read = std::span(read_).subspan(BytesOf(sector), BytesOf(SectorsOf(piece)));
        if (!isRead || PieceDigests::Of(read) != DigestOf(piece)) {
            Examine(piece, read, isRead);
        }
    }
    done_ += reader_.IsStopped() ? 0 : count;
}

const PieceDigests::Digest& DiscComparer::DigestOf(qint64 piece) const
{
    return pieces_.at(static_cast<std::size_t>(piece));
}

qint64 DiscComparer::SectorsOf(qint64 piece) const
{
    return std::min(kPieceSectors, track_.Sectors() - piece * kPieceSectors);
}

/// Finds the damaged sectors of a piece that isn't as written, or wasn't read completely.
void DiscComparer::Examine(qint64 piece, std::span<std::byte> read, bool isRead)
{
    Findings findings(static_cast<std::size_t>(SectorsOf(piece)));
    const qint64 first = piece * kPieceSectors;
    if (!isRead) {
        ReadAgain(first, read, findings);
    }
    if (!reader_.IsStopped()) {
        MarkDifferences(piece, read, findings);
    }
    Tell(first, findings);
}

/// Compares the sectors that could be read. If the source has changed meanwhile, a completely read
/// piece counts as different as a whole.
void DiscComparer::MarkDifferences(
    qint64 piece, std::span<const std::byte> read, Findings& findings)
{
    const std::vector<std::byte> written = MadeAnew(piece);
    const auto isRead = [](const Finding& finding) { return finding.state == State::Same; };
    if (written.empty()) {
        if (std::ranges::all_of(findings, isRead) && PieceDigests::Of(read) != DigestOf(piece)) {
            std::ranges::fill(findings, Finding {State::Different});
        }
        return;
    }
    for (std::size_t sector = 0; sector < findings.size(); ++sector) {
        const std::byte* one = read.data() + sector * kSectorBytes;
        const std::byte* other = written.data() + sector * kSectorBytes;
        if (isRead(findings[sector]) && std::memcmp(one, other, kSectorBytes) != 0) {
            const auto difference = std::mismatch(one, one + kSectorBytes, other);
            findings[sector] = {State::Different, static_cast<std::size_t>(difference.first - one)};
        }
    }
}

/// The bytes of a piece as they were written; none if the source has changed since.
std::vector<std::byte> DiscComparer::MadeAnew(qint64 piece)
{
    std::vector<std::byte> bytes(BytesOf(SectorsOf(piece)));
    try {
        source_.Seek(BytesOf(piece * kPieceSectors));
        ReadAll(source_, bytes);
    } catch (const runtime::RuntimeError&) {
        return {};
    }
    return PieceDigests::Of(bytes) == DigestOf(piece) ? bytes : std::vector<std::byte>();
}

/// Reads block by block, as slowly as the drive can, what couldn't be read as one piece and, if
/// that is quick, sector by sector.
void DiscComparer::ReadAgain(qint64 first, std::span<std::byte> out, Findings& findings)
{
    constexpr double kQuick = 1; // seconds
    const SlowReading slow(reader_);
    const auto sectors = static_cast<qint64>(findings.size());
    qint64 step = kBlockSectors;
    for (qint64 sector = 0; sector < sectors && !reader_.IsStopped();) {
        const qint64 count = std::min(step, sectors - sector);
        const double lostBefore = reader_.SecondsLost();
        const ReadEnd end = reader_.Read(
            track_.FirstSector() + first + sector, out.subspan(BytesOf(sector), BytesOf(count)));
        const bool isQuick = reader_.SecondsLost() - lostBefore < kQuick;
        if (end == ReadEnd::Unreadable && count > 1 && isQuick) {
            step = 1;
            continue;
        }
        if (end == ReadEnd::Unreadable) {
            std::fill_n(findings.begin() + sector, count, Finding {State::Unreadable});
        }
        sector += count;
        step = sector % kBlockSectors == 0 ? kBlockSectors : step;
    }
}

void DiscComparer::Tell(qint64 first, const Findings& findings)
{
    bool isHurt = false;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        if (findings[i].state != State::Same) {
            const qint64 sector = first + static_cast<qint64>(i);
            TellPlace(track_.FirstSector() + sector, findings[i].state == State::Unreadable);
            NameFile(sector, findings[i].firstByte);
            isHurt = true;
        }
    }
    hurtPieces_ += isHurt ? 1 : 0;
}

/// Consecutive sectors are one place.
void DiscComparer::TellPlace(qint64 sector, bool isUnreadable)
{
    std::vector<imapi::HurtPlace>& places = result_.places;
    if (!places.empty() && places.back().isUnreadable == isUnreadable
        && places.back().lastSector + 1 == sector) {
        places.back().lastSector = sector;
    } else {
        places.push_back({sector, sector, isUnreadable});
    }
}

/// Sectors come in the order of the disc, and so do their files; each begins a sector of its own.
void DiscComparer::NameFile(qint64 sector, std::size_t firstByte)
{
    for (const imapi::FilePart& file :
        source_.FilesBetween(BytesOf(sector) + firstByte, BytesOf(sector + 1))) {
        if (file.path == lastHurtFile_) {
            continue;
        }
        lastHurtFile_ = file.path;
        ++result_.hurtFileCount;
        if (result_.hurtFiles.size() < imapi::DiscComparison::kMostNamed) {
            result_.hurtFiles.push_back({file.path, file.firstByte});
        }
    }
}

} // namespace velmora::mastering
