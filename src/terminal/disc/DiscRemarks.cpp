// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/DiscRemarks.h"

#include "terminal/console/RemarkList.h"
#include "text/PathText.h"

#include <string>

namespace velmora::terminal {

Remark RemarkOf(const imapi::ChangedName& name)
{
    return ChangedNameRemark(
        name.fileSystem.toStdString(), text::ToNativePath(name.path), name.recorded.toStdString());
}

Remark RemarkOf(const imapi::NameHazard& hazard)
{
    return EntryRemark(
        RemarkKind::NameHazard, text::ToNativePath(hazard.path), hazard.reason.toStdString());
}

Remark RemarkOf(const imapi::LinkLeadingOut& link)
{
    return LinkRemark(text::ToNativePath(link.path), link.text.toStdString());
}

Remark RemarkOf(const imapi::LeftOutEntry& entry)
{
    return EntryRemark(
        RemarkKind::LeftOut, text::ToNativePath(entry.path), entry.reason.toStdString());
}

Remark RemarkOf(const imapi::PartlyHeldEntry& entry)
{
    Remark remark = EntryRemark(
        RemarkKind::PartlyHeld, text::ToNativePath(entry.path), entry.reason.toStdString());
    remark.fileSystem = entry.fileSystem.toStdString();
    remark.text.insert(0, remark.fileSystem + " : ");
    return remark;
}

Remark RemarkOf(const imapi::HurtFile& file)
{
    return EntryRemark(RemarkKind::HurtFile,
        text::ToNativePath(file.path),
        "Abîmé à partir de l'octet " + std::to_string(file.firstByte) + ".");
}

Remark RemarkOfChangedSource(const QString& path)
{
    return ChangedSourceRemark(text::ToNativePath(path));
}

Remark RemarkOfHiddenEntry(const QString& path)
{
    return EntryRemark(RemarkKind::HiddenEntry, text::ToNativePath(path), "Caché, donc pas pris.");
}

} // namespace velmora::terminal
