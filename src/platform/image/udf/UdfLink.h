// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace velmora::image {

/// The path components of a symbolic link (ECMA-167 4/14.16), which are its data. Each name is as a
/// file of that name has it; redundant slashes are not recorded.
/// @param text   as the source has it
/// @param forms  of its names, where a name's form isn't the nearest one; may be empty
std::string PathComponents(std::string_view text, std::span<const std::string_view> forms = {});

/// The most bytes that the path components can take, whatever numbers the names get.
std::size_t MostOfPathComponents(std::string_view text);

/// The most bytes of path components that an entry of either kind can hold itself. Longer ones are
/// not recorded: Linux reads no more than a block of them.
inline constexpr std::size_t kMaxPathComponents = 2048 - 216;

} // namespace velmora::image
