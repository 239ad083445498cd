// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/image/ImageJson.h"

#include "terminal/console/JsonEntries.h"
#include "terminal/image/ImageRemarks.h"

#include <QJsonArray>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

template <class Items> QJsonArray Entries(const Items& items)
{
    return EntryArray(items, [](const auto& item) { return RemarkOf(item); });
}

QJsonArray NamesOf(const image::FileSystems& fileSystems)
{
    QJsonArray names;
    if (fileSystems.iso9660) {
        names.append(u"ISO 9660"_s);
    }
    if (fileSystems.joliet) {
        names.append(u"Joliet"_s);
    }
    if (fileSystems.udf) {
        names.append(u"UDF"_s);
    }
    return names;
}

} // namespace

QJsonObject ImageObject(
    const ImageRequest& request, const image::ImagePlan& plan, const Losses& losses)
{
    QJsonObject object {{u"kind"_s, u"image"_s},
        {u"writtenBytes"_s, static_cast<qint64>(plan.Bytes())},
        {u"sectors"_s, static_cast<qint64>(plan.Sectors())},
        {u"files"_s, static_cast<qint64>(plan.Files())},
        {u"directories"_s, static_cast<qint64>(plan.Directories())},
        {u"links"_s, static_cast<qint64>(plan.Links())},
        {u"fileSystems"_s, NamesOf(request.options.fileSystems)},
        {u"volumeName"_s, JsonText(plan.VolumeName())},
        {u"changedNames"_s, Entries(losses.changedNames)},
        {u"nameHazards"_s, Entries(losses.nameHazards)},
        {u"linksLeadingOut"_s, Entries(losses.linksLeadingOut)},
        {u"changedSources"_s, EntryArray(losses.changedFiles, ChangedSourceRemark)},
        {u"leftOut"_s, Entries(losses.missing)},
        {u"partlyHeld"_s, Entries(losses.partlyMissing)},
        {u"keepsOtherSums"_s, losses.keepsOtherSums}};
    InsertBytes(object, u"place"_s, request.output.Bytes());
    return object;
}

} // namespace velmora::terminal
