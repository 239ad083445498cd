// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "terminal/console/JobEvents.h"

#include <string>

namespace velmora::terminal {

// What the library reports about an image, as remarks.

JobRemark RemarkOf(const image::NameChange& change);
JobRemark RemarkOf(const image::HazardousName& hazard);
JobRemark RemarkOf(const image::OutwardLink& link);
/// For an entry that the image lacks.
JobRemark RemarkOf(const image::Error& error);
/// For an entry that one of its file systems lacks.
JobRemark RemarkOf(const image::OmittedEntry& entry);

} // namespace velmora::terminal
