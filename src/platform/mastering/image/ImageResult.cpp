// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/ImageResult.h"

#include "mastering/base/ImageErrors.h"
#include "mastering/image/ImageResultStream.h"
#include "text/PathText.h"
#include "unicode/Unicode.h"

#include <limits>

namespace velmora::mastering {

using namespace Qt::StringLiterals;

namespace {

QString NameOf(image::FileSystem fileSystem)
{
    switch (fileSystem) {
    case image::FileSystem::Joliet:
        return u"Joliet"_s;
    case image::FileSystem::Udf:
        return u"UDF"_s;
    case image::FileSystem::Iso9660:
        break;
    }
    return u"ISO 9660"_s;
}

} // namespace

ImageResult::ImageResult(
    const image::ImagePlan& plan, std::vector<image::Error> linksLeftOut, bool keepsOtherSums)
    : plan_(plan)
    , linksLeftOut_(std::move(linksLeftOut))
    , keepsOtherSums_(keepsOtherSums)
    , stream_(std::make_shared<ImageResultStream>(plan))
    , totalBlocks_(static_cast<qint32>(plan.Sectors()))
{
}

qint32 ImageResult::BlockSize() const { return static_cast<qint32>(image::kSectorSize); }

std::vector<imapi::ChangedName> ImageResult::ChangedNames() const
{
    return ChangedNames(std::numeric_limits<std::size_t>::max());
}

std::vector<imapi::ChangedName> ImageResult::ChangedNames(std::size_t most) const
{
    std::vector<imapi::ChangedName> names;
    for (const image::NameChange& change : plan_.ChangedNames(most)) {
        names.push_back({text::ToDiscPath(change.path),
            QString::fromStdString(change.recorded),
            NameOf(change.fileSystem)});
    }
    return names;
}

std::vector<imapi::LeftOutEntry> ImageResult::LinksLeftOut() const
{
    return EntriesOf(linksLeftOut_);
}

std::vector<imapi::PartlyHeldEntry> ImageResult::PartlyHeld() const
{
    std::vector<imapi::PartlyHeldEntry> entries;
    for (const image::OmittedEntry& entry : plan_.PartlyHeld()) {
        entries.push_back(
            {text::ToDiscPath(entry.error.path), NameOf(entry.fileSystem), ReasonOf(entry.error)});
    }
    return entries;
}

std::vector<imapi::NameHazard> ImageResult::NameHazards() const
{
    std::vector<imapi::NameHazard> hazards;
    for (const image::HazardousName& hazard : plan_.NameHazards()) {
        hazards.push_back(
            {text::ToDiscPath(hazard.path), QString::fromStdString(image::Describe(hazard.kind))});
    }
    return hazards;
}

std::vector<imapi::LinkLeadingOut> ImageResult::LinksLeadingOut() const
{
    std::vector<imapi::LinkLeadingOut> links;
    for (const image::OutwardLink& link : plan_.LinksLeadingOut()) {
        links.push_back({text::ToDiscPath(link.path),
            QString::fromStdString(unicode::ReadableText(link.text))});
    }
    return links;
}

} // namespace velmora::mastering
