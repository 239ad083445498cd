// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "terminal/console/JobEvents.h"

#include <string>

namespace velmora::terminal {

// What the library tells of an image, as remarks.

JobRemark RemarkOf(const image::NameChange& change);
JobRemark RemarkOf(const image::HazardousName& hazard);
JobRemark RemarkOf(const image::OutwardLink& link);
/// Of an entry that the image has nowhere.
JobRemark RemarkOf(const image::Error& error);
/// Of an entry that one of its file systems lacks.
JobRemark RemarkOf(const image::OmittedEntry& entry);

} // namespace velmora::terminal
