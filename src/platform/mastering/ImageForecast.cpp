// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/ImageForecast.h"

#include "mastering/image/FileSystemImage.h"
#include "mastering/image/ImageResult.h"
#include "mastering/isofile/FileStream.h"

#include <utility>

namespace velmora::mastering {

namespace {

using imapi::ImageDraft;
using imapi::ImageEntry;
using imapi::ImageRemarks;

/// Time doesn't matter for an image that isn't written.
class StandingClock final : public runtime::Clock {
public:
    double Timer() const override { return 0; }
    QDateTime Now() const override { return QDateTime::fromMSecsSinceEpoch(0); }
    void Pause(double) override { }
};

void Configure(FileSystemImage& image, const ImageDraft& draft)
{
    image.ChooseImageDefaultsForMediaType(draft.medium);
    if (draft.fileSystems) {
        image.SetFileSystemsToCreate(*draft.fileSystems);
    }
    if (draft.isStrict) {
        image.SetISO9660InterchangeLevel(1);
        image.SetUseRestrictedCharacterSet(true);
        image.SetStrictFileSystemCompliance(true);
    }
    if (!draft.volumeName.isEmpty()) {
        image.SetVolumeName(draft.volumeName);
    }
}

void Add(FileSystemImage& image, const ImageEntry& entry)
{
    const imapi::DirectoryItemRef root = image.Root();
    switch (entry.kind) {
    case ImageEntry::Kind::File:
        root->AddFile(entry.path, SHCreateStreamOnFile(entry.source, imapi::FileStreamMode::Read));
        break;
    case ImageEntry::Kind::Directory:
        root->AddDirectory(entry.path);
        break;
    case ImageEntry::Kind::Tree:
        (entry.path.IsEmpty() ? root : root->Item(entry.path))->AddTree(entry.source, true);
        break;
    }
}

/// An entry that can't be added is left out, as in a real image.
void AddOrTell(FileSystemImage& image, const ImageEntry& entry, ImageRemarks& remarks)
{
    try {
        Add(image, entry);
    } catch (const imapi::EntriesLeftOut& failure) {
        remarks.leftOut.insert(
            remarks.leftOut.end(), failure.Entries().begin(), failure.Entries().end());
    } catch (const runtime::RuntimeError& failure) {
        const bool isMade = entry.kind == ImageEntry::Kind::Directory;
        remarks.leftOut.push_back({.path = isMade ? entry.path.Text() : entry.source.Text(),
            .reason = failure.Description()});
    }
}

void TakeRemarks(const ImageResult& result, std::size_t mostNames, ImageRemarks& remarks)
{
    const std::vector<imapi::LeftOutEntry> links = result.LinksLeftOut();
    remarks.leftOut.insert(remarks.leftOut.end(), links.begin(), links.end());
    remarks.changedNames = result.ChangedNames(mostNames);
    remarks.partlyHeld = result.PartlyHeld();
    remarks.nameHazards = result.NameHazards();
    remarks.linksLeadingOut = result.LinksLeadingOut();
}

} // namespace

std::optional<ImageRemarks> ImageForecast::Forecast(
    const ImageDraft& draft, std::size_t mostNames, const std::stop_token& stop) const
{
    const StandingClock clock;
    FileSystemImage image(clock);
    ImageRemarks remarks;
    try {
        Configure(image, draft);
        image.MeasureOnly(stop);
        for (const ImageEntry& entry : draft.entries) {
            if (stop.stop_requested()) {
                return std::nullopt;
            }
            AddOrTell(image, entry, remarks);
        }
        TakeRemarks(*image.MakeResult(), mostNames, remarks);
    } catch (const runtime::RuntimeError&) {
        return std::nullopt;
    }
    return stop.stop_requested() ? std::nullopt : std::optional(std::move(remarks));
}

} // namespace velmora::mastering
