// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/DiscRemarks.h"

#include "terminal/console/RemarkList.h"
#include "text/PathText.h"

#include <string>

namespace velmora::terminal {

JobRemark RemarkOf(const imapi::ChangedName& name)
{
    return ChangedNameRemark(
        name.fileSystem.toStdString(), text::ToImagePath(name.path), name.recorded.toStdString());
}

JobRemark RemarkOf(const imapi::NameHazard& hazard)
{
    return EntryRemark(
        RemarkKind::NameHazard, text::ToImagePath(hazard.path), hazard.reason.toStdString());
}

JobRemark RemarkOf(const imapi::LinkLeadingOut& link)
{
    return LinkRemark(text::ToImagePath(link.path), link.text.toStdString());
}

JobRemark RemarkOf(const imapi::LeftOutEntry& entry)
{
    return EntryRemark(
        RemarkKind::LeftOut, text::ToNativePath(entry.path), entry.reason.toStdString());
}

JobRemark RemarkOf(const imapi::PartlyHeldEntry& entry)
{
    JobRemark remark = EntryRemark(
        RemarkKind::PartlyHeld, text::ToImagePath(entry.path), entry.reason.toStdString());
    remark.fileSystem = entry.fileSystem.toStdString();
    remark.text.insert(0, remark.fileSystem + " : ");
    return remark;
}

JobRemark RemarkOf(const imapi::HurtFile& file)
{
    return EntryRemark(RemarkKind::HurtFile,
        text::ToImagePath(file.path),
        "Abîmé à partir de l'octet " + std::to_string(file.firstByte) + ".");
}

JobRemark RemarkOfChangedSource(const text::ProgramPath& path)
{
    return ChangedSourceRemark(text::ToNativePath(path).Bytes());
}

JobRemark RemarkOfHiddenEntry(const text::ProgramPath& path)
{
    return EntryRemark(
        RemarkKind::HiddenEntry, text::ToNativePath(path).Bytes(), "Caché, donc pas pris.");
}

} // namespace velmora::terminal
