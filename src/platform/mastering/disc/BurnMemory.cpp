// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/disc/BurnMemory.h"

#include "drive/DiscKinds.h"
#include "drive/SectorSize.h"
#include "text/PathText.h"

#include <QTimeZone>

namespace velmora::mastering {

using namespace Qt::StringLiterals;

namespace {

QString NameOf(drive::IMAPI_MEDIA_PHYSICAL_TYPE disc)
{
    const drive::DiscKind* kind = drive::FindDiscKind(disc);
    return kind ? kind->name.toString() : QString();
}

QString NameOf(drive::WriteAction step)
{
    using drive::WriteAction;
    switch (step) {
    case WriteAction::ValidatingMedia:
        return u"examining"_s;
    case WriteAction::FormattingMedia:
        return u"formatting"_s;
    case WriteAction::InitializingHardware:
        return u"preparing"_s;
    case WriteAction::CalibratingPower:
        return u"calibrating"_s;
    case WriteAction::WritingData:
        return u"writing"_s;
    case WriteAction::Finalization:
        return u"finalizing"_s;
    case WriteAction::Completed:
    case WriteAction::Verifying:
        return u"comparing"_s;
    }
    return {};
}

QString NameOf(const drive::DriveFacts& recorder)
{
    return (recorder.vendor + u' ' + recorder.product).trimmed();
}

QByteArray PiecesOf(WrittenTrack& track)
{
    QByteArray pieces;
    for (const PieceDigests::Digest& digest : track.Pieces()) {
        pieces += BytesOf(digest);
    }
    return pieces;
}

std::vector<records::RecordedFile> FilesOf(const WrittenTrack& track)
{
    std::vector<records::RecordedFile> files;
    const FileDigests& digests = track.Files();
    for (std::size_t i = 0; i < digests.Digests().size(); ++i) {
        const imapi::FileExtent& file = digests.Files()[i];
        files.push_back({.path = text::ToImagePath(file.path),
            .firstSector
            = track.FirstSector() + static_cast<qint64>(file.firstByte) / drive::kSectorBytes,
            .bytes = file.bytes,
            .digest = BytesOf(digests.Digests()[i])});
    }
    return files;
}

} // namespace

records::BurnRecord RecordOf(WrittenTrack& track,
    const imapi::IStream& source,
    const drive::DriveFacts& recorder,
    drive::IMAPI_MEDIA_PHYSICAL_TYPE disc,
    const QDateTime& now)
{
    return {.date = QDateTime::fromSecsSinceEpoch(now.toSecsSinceEpoch(), QTimeZone::utc()),
        .recorder = NameOf(recorder),
        .disc = NameOf(disc),
        .volume = source.VolumeName(),
        .firstSector = track.FirstSector(),
        .sectors = track.Sectors(),
        .sha256 = track.Sha256(),
        .pieces = PiecesOf(track),
        .files = FilesOf(track)};
}

records::WriteFailure FailureOf(const runtime::RuntimeError& failure,
    drive::WriteAction step,
    const drive::DriveFacts& recorder,
    drive::IMAPI_MEDIA_PHYSICAL_TYPE disc,
    const QDateTime& now)
{
    return {.date = QDateTime::fromSecsSinceEpoch(now.toSecsSinceEpoch(), QTimeZone::utc()),
        .recorder = NameOf(recorder),
        .revision = recorder.revision,
        .disc = NameOf(disc),
        .step = NameOf(step),
        .number = failure.Number(),
        .sense = failure.Source()};
}

} // namespace velmora::mastering
