// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora::image {

/// A name of UTF-16 units (high byte first) cut to `maxUnits`, with `tail` between its stem and its
/// extension. A short extension stays whole; no surrogate pair is split.
std::string CutUnits(std::string_view name, std::size_t maxUnits, std::string_view tail);

/// The same for a name of single bytes.
std::string CutBytes(std::string_view name, std::size_t maxBytes, std::string_view tail);

/// The first `maxUnits` UTF-16 units of a text, one less if a surrogate pair would be split.
std::string_view FirstUnits(std::string_view units, std::size_t maxUnits);

} // namespace velmora::image
