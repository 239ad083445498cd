// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/iso/RockRidge.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::image {

// Where system use fields continue that don't fit into their record: areas of whole fields, each
// within one sector. An area that isn't the last fills a sector and ends in a CE field that leads
// to the next one (SUSP 5.1).

/// Bytes that fields take in continuation areas; if more than a sector, they must begin on a sector
/// boundary.
std::uint32_t LengthInAreas(std::string_view fields);

/// The areas of fields, ready to be recorded from `at` on (bytes from the image's start).
std::string InAreas(std::string_view fields, std::uint64_t at);

/// The CE field that leads to the first area of fields.
Continuation LeadingTo(std::string_view fields, std::uint64_t at);

} // namespace velmora::image
