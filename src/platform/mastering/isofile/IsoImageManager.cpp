// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/IsoImageManager.h"

#include "drive/PublishedCodes.h"
#include "drive/VolumeStart.h"
#include "mastering/isofile/FileWriters.h"
#include "mastering/isofile/PartitionTable.h"
#include "mastering/isofile/VolumeExtent.h"
#include "unicode/Unicode.h"

#include <algorithm>

namespace velmora::mastering {

using namespace Qt::StringLiterals;

namespace {

/// The sectors of an image; those past its end read as zeros.
class StreamSectors final : public SectorReader {
public:
    explicit StreamSectors(imapi::IStream& image)
        : image_(image)
    {
    }

    qint64 Count() const { return static_cast<qint64>(image_.Size()) / drive::kSectorBytes; }

    bool Holds(qint64 sector) const override { return sector >= 0 && sector < Count(); }
    Sector Read(qint64 sector) const override
    {
        Sector bytes {};
        if (Holds(sector)) {
            image_.Seek(static_cast<quint64>(sector * drive::kSectorBytes));
            image_.Read(bytes);
        }
        return bytes;
    }
    Sector ReadOnDisc(qint64 sector) const override { return Read(sector); }

private:
    imapi::IStream& image_;
};

/// A closed volume has a second anchor at its end (UDF 2.60, 2.2.3), possibly followed by padding.
bool HasLastAnchor(const StreamSectors& image)
{
    constexpr qint64 kFarthest = 512; // 256 sectors, and more than any usual padding
    qint64 sector = image.Count() - 1;
    const qint64 farthest = std::max(image.Count() - kFarthest, drive::kAnchorSector + 1);
    while (sector >= farthest && !IsUdfAnchor(image.Read(sector))) {
        --sector;
    }
    return sector >= farthest;
}

/// Nothing without UDF; a volume without its last anchor ends past the image.
std::optional<qint64> EndOfUdf(const StreamSectors& image)
{
    const std::optional<UdfVolume> volume = FindUdfVolume(image);
    if (!volume) {
        const qint64 needed = image.Holds(drive::kAnchorSector) ? 0 : drive::kAnchorSector + 1;
        return NamesUdf(image) ? std::optional(needed) : std::nullopt;
    }
    if (volume->isVirtual) {
        return volume->sequencesEnd;
    }
    const qint64 end = std::max(volume->partitionEnd, volume->sequencesEnd);
    return HasLastAnchor(image) ? end : std::max(end, image.Count() + 1);
}

/// If there is ISO 9660 too, that tells the end.
std::optional<qint64> EndOfVolumes(const StreamSectors& image)
{
    const std::optional<qint64> iso = EndOfIso9660(image);
    if (!iso) {
        return EndOfUdf(image);
    }
    const std::optional<UdfVolume> udf = FindUdfVolume(image);
    return udf && !udf->isVirtual ? std::max({*iso, udf->partitionEnd, udf->sequencesEnd}) : *iso;
}

/// The number of sectors that an image claims to have; nothing if it isn't an image.
std::optional<qint64> SectorsNamedIn(const StreamSectors& image)
{
    std::optional<qint64> disk;
    if (const std::optional<qint64> bytes = EndOfPartitions(image.Read(0))) {
        disk = (*bytes + drive::kSectorBytes - 1) / drive::kSectorBytes;
    }
    return std::max(disk, EndOfVolumes(image)); // nothing is less than any
}

/// The image's name in a sentence.
QString NameOf(const imapi::IStream& image)
{
    const std::optional<imapi::StreamFile> file = image.File();
    return file ? u"« %1 »"_s.arg(QString::fromStdString(unicode::ReadableText(file->path.Bytes())))
                : u"L'image"_s;
}

} // namespace

void IsoImageManager::SetStream(const imapi::StreamRef& image)
{
    if (!image) {
        throw drive::PublishedError(drive::hresult::kPointer);
    }
    const std::optional<imapi::StreamFile> file = image->File();
    const auto writer = file ? WriterOf(file->descriptor) : std::nullopt;
    if (writer) {
        throw drive::PublishedError(drive::hresult::kStreamShareViolation,
            NameOf(*image) + u" est ouvert en écriture par "_s + *writer
                + u" : attendez qu'il ait fini, ou démontez l'image si elle est montée, puis "
                  "recommencez."_s);
    }
    image_ = image;
}

void IsoImageManager::Validate()
{
    if (!image_) {
        throw drive::PublishedError(drive::hresult::kPointer);
    }
    const StreamSectors sectors(*image_);
    const std::optional<qint64> named = SectorsNamedIn(sectors);
    if (!named) {
        throw drive::PublishedError(drive::hresult::kNoKnownFileSystem,
            NameOf(*image_)
                + u" n'est pas l'image d'un disque : ni ISO 9660, ni UDF, ni partitions."_s);
    }
    if (*named > sectors.Count()) {
        throw drive::PublishedError(drive::hresult::kEndOfFile,
            NameOf(*image_)
                + u" est une image incomplète : il lui faut au moins %1 secteurs, et le fichier "
                  "n'en a que %2. Reprenez-la à sa source."_s.arg(*named)
                      .arg(sectors.Count()));
    }
}

} // namespace velmora::mastering
