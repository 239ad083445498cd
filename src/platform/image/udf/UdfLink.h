// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace velmora::image {

/// The path components of a symbolic link (ECMA-167 4/14.16), which are its data. Each name is as a
/// file of that name has it; slashes that stand for nothing are not recorded.
/// @param text   as the source has it
/// @param forms  of its names, where a name has another form than the nearest; may be empty
std::string PathComponents(std::string_view text, std::span<const std::string_view> forms = {});

/// Bytes that the path components take at most, whatever numbers the names get.
std::size_t MostOfPathComponents(std::string_view text);

/// Bytes of path components that an entry of either kind holds itself. Longer ones are not
/// recorded: Linux reads no more than a block of them.
inline constexpr std::size_t kMaxPathComponents = 2048 - 216;

} // namespace velmora::image
