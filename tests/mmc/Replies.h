// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/mmc/Disc.h"
#include "tests/mmc/Recorder.h"

#include <cstdint>
#include <vector>

namespace velmora::mmc {

using Reply = std::vector<std::uint8_t>;

/// What the drive reports about itself. The clauses are those of MMC-5 and SPC-3.
Reply InquiryReply();
/// GET CONFIGURATION (6.6): the features from a number on.
/// @param onlyOne  only the feature of that number
Reply ConfigurationReply(const Disc& disc, std::uint32_t first, bool onlyOne);
/// MODE SENSE (10) of one page; empty for a page that the drive lacks.
Reply ModeReply(const Disc& disc, const WriteParameters& parameters, int page);
/// GET PERFORMANCE (6.8) of type 0 (as a line) or 3 (write speeds); empty for other types.
Reply PerformanceReply(const Disc& disc, int type, bool write, std::uint32_t most);

/// What the drive reports about the disc; an empty reply if the disc has no such data.
Reply DiscInformation(const Disc& disc);
/// READ TRACK INFORMATION (6.27). @param kind  of the number: 0 address, 1 track, 2 session
Reply TrackInformation(const Disc& disc, int kind, std::int64_t number);
/// READ TOC/PMA/ATIP (6.26).
Reply TableOfContents(const Disc& disc, int format, bool asTime);
Reply Capacity(const Disc& disc);
Reply FormatCapacities(const Disc& disc);

} // namespace velmora::mmc
