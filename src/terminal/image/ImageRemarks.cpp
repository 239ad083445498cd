// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/image/ImageRemarks.h"

#include "terminal/arguments/FailureText.h"
#include "terminal/console/RemarkList.h"

#include <string_view>

namespace velmora::terminal {

namespace {

using image::FileSystem;

std::string_view NameOf(FileSystem fileSystem)
{
    switch (fileSystem) {
    case FileSystem::Iso9660:
        return "ISO 9660";
    case FileSystem::Joliet:
        return "Joliet";
    case FileSystem::Udf:
        break;
    }
    return "UDF";
}

} // namespace

JobRemark RemarkOf(const image::NameChange& change)
{
    return ChangedNameRemark(NameOf(change.fileSystem), change.path, change.recorded);
}

JobRemark RemarkOf(const image::HazardousName& hazard)
{
    return EntryRemark(RemarkKind::NameHazard, hazard.path, Describe(hazard.kind));
}

JobRemark RemarkOf(const image::OutwardLink& link) { return LinkRemark(link.path, link.text); }

JobRemark RemarkOf(const image::Error& error)
{
    return {.kind = RemarkKind::LeftOut, .path = error.path, .text = FailureText(error)};
}

JobRemark RemarkOf(const image::OmittedEntry& entry)
{
    const std::string fileSystem(NameOf(entry.fileSystem));
    return {.kind = RemarkKind::PartlyHeld,
        .path = entry.error.path,
        .fileSystem = fileSystem,
        .text = fileSystem + " : " + FailureText(entry.error)};
}

} // namespace velmora::terminal
