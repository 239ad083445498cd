// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/ImageResult.h"

#include "mastering/ImageResultStream.h"
#include "text/PathText.h"

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

ImageResult::ImageResult(const image::ImagePlan& plan)
    : plan_(plan)
    , stream_(std::make_shared<ImageResultStream>(plan))
    , totalBlocks_(static_cast<qint32>(plan.Sectors()))
{
}

qint32 ImageResult::BlockSize() const { return static_cast<qint32>(image::kSectorSize); }

std::vector<imapi::ChangedName> ImageResult::ChangedNames() const
{
    std::vector<imapi::ChangedName> names;
    for (const image::NameChange& change : plan_.ChangedNames()) {
        names.push_back({text::ToProgramPath(change.path),
            QString::fromStdString(change.recorded),
            NameOf(change.fileSystem)});
    }
    return names;
}

} // namespace velmora::mastering
