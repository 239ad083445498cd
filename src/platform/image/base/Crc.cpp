// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/base/Crc.h"

#include <array>

namespace velmora::image {

namespace {

// Row 0 is the usual table of one byte; row k is that of a byte followed by k more, so that eight
// bytes are looked up at once.
using Tables = std::array<std::array<std::uint16_t, 256>, 8>;

constexpr Tables MakeTables()
{
    Tables tables {};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned crc = byte << 8U;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc << 1U ^ ((crc & 0x8000U) != 0 ? 0x1021U : 0U)) & 0xFFFFU;
        }
        tables[0][byte] = static_cast<std::uint16_t>(crc);
    }
    for (std::size_t row = 1; row < tables.size(); ++row) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const unsigned before = tables[row - 1][byte];
            tables[row][byte]
                = static_cast<std::uint16_t>((before << 8U & 0xFFFFU) ^ tables[0][before >> 8U]);
        }
    }
    return tables;
}

constexpr Tables kTables = MakeTables();

} // namespace

std::uint16_t Crc16(std::string_view bytes)
{
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    unsigned crc = 0;
    while (bytes.size() >= 8) {
        crc = kTables[7][at(0) ^ crc >> 8U] ^ kTables[6][at(1) ^ (crc & 0xFFU)] ^ kTables[5][at(2)]
            ^ kTables[4][at(3)] ^ kTables[3][at(4)] ^ kTables[2][at(5)] ^ kTables[1][at(6)]
            ^ kTables[0][at(7)];
        bytes.remove_prefix(8);
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        crc = (crc << 8U & 0xFFFFU) ^ kTables[0][crc >> 8U ^ at(i)];
    }
    return static_cast<std::uint16_t>(crc);
}

} // namespace velmora::image
