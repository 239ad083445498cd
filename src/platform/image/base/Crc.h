// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace velmora::image {

/// The CRC of descriptor tags: polynomial 0x1021, start 0, not reflected (UDF 6.5, ECMA-167
/// 3/7.2.6).
/// "\x70\x6A\x77" gives 0x3299.
std::uint16_t Crc16(std::string_view bytes);

} // namespace velmora::image
