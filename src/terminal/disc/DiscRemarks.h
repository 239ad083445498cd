// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/JobEvents.h"
#include "writing/RunReport.h"

#include <QString>

namespace velmora::terminal {

// What a run reports about its disc, as remarks.

JobRemark RemarkOf(const imapi::ChangedName& name);
JobRemark RemarkOf(const imapi::NameHazard& hazard);
JobRemark RemarkOf(const imapi::LinkLeadingOut& link);
JobRemark RemarkOf(const imapi::LeftOutEntry& entry);
JobRemark RemarkOf(const imapi::PartlyHeldEntry& entry);
JobRemark RemarkOf(const imapi::HurtFile& file);

JobRemark RemarkOfChangedSource(const text::ProgramPath& path);
JobRemark RemarkOfHiddenEntry(const text::ProgramPath& path);

} // namespace velmora::terminal
