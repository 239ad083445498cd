// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "terminal/console/JobEvents.h"

#include <string>

namespace velmora::terminal {

// What the library tells of an image, as remarks.

Remark RemarkOf(const image::NameChange& change);
Remark RemarkOf(const image::HazardousName& hazard);
Remark RemarkOf(const image::OutwardLink& link);
/// Of an entry that the image has nowhere.
Remark RemarkOf(const image::Error& error);
/// Of an entry that one of its file systems lacks.
Remark RemarkOf(const image::OmittedEntry& entry);

} // namespace velmora::terminal
