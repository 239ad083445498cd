// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IImageForecast.h"
#include "text/Paths.h"
#include "wizard/rules/Remarks.h"

#include <QList>

#include <cstddef>
#include <stop_token>
#include <vector>

namespace velmora::wizard {

/// Nobody reads more remarks than these, and a list of a million takes much memory.
inline constexpr std::size_t kMostRemarksAhead = 10'000;

/// The input of the remarks before a burn: a separate copy, for another thread.
struct RemarksQuestion {
    imapi::ImageDraft draft {};
    QList<text::ProgramPath> hiddenEntries {}; ///< that the list lacks
};

/// The remarks that a burn would make, in the same words and order: the image is laid out only for
/// them. Beyond kMostRemarksAhead one more says that there are others. Any thread may call it.
/// @param stop  asks to give up; the result is then unusable
std::vector<Remark> RemarksAhead(const RemarksQuestion& question,
    const imapi::IImageForecast& forecast,
    const std::stop_token& stop);

} // namespace velmora::wizard
