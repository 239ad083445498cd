// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/JobEvents.h"
#include "writing/RunReport.h"

#include <QString>

namespace velmora::terminal {

// What a run tells of its disc, as remarks.

Remark RemarkOf(const imapi::ChangedName& name);
Remark RemarkOf(const imapi::NameHazard& hazard);
Remark RemarkOf(const imapi::LinkLeadingOut& link);
Remark RemarkOf(const imapi::LeftOutEntry& entry);
Remark RemarkOf(const imapi::PartlyHeldEntry& entry);
Remark RemarkOf(const imapi::HurtFile& file);

// Of program paths.

Remark RemarkOfChangedSource(const QString& path);
Remark RemarkOfHiddenEntry(const QString& path);

} // namespace velmora::terminal
