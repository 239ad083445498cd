// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IImageForecast.h"
#include "text/Paths.h"
#include "wizard/rules/Remarks.h"

#include <QString>

#include <cstddef>
#include <set>
#include <stop_token>
#include <vector>

namespace velmora::wizard {

/// Of more remarks than these a person reads none; and a list of a million takes much memory.
inline constexpr std::size_t kMostRemarksAhead = 10'000;

/// What the remarks before a burn come from: a copy of its own, for another thread.
struct RemarksQuestion {
    imapi::ImageDraft draft {};
    text::ProgramPath folder {};  ///< that the list was made from
    std::set<QString> origins {}; ///< of the list's rows
};

/// What a burn would tell of what it wrote, in the same words and order: the image is laid out for
/// nothing else. Beyond kMostRemarksAhead one more says that there are others. Any thread may ask.
/// @param stop  asks to give up; what comes then is of no use
std::vector<Remark> RemarksAhead(const RemarksQuestion& question,
    const imapi::IImageForecast& forecast,
    const std::stop_token& stop);

} // namespace velmora::wizard
