// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/RecordedName.h"

#include "image/names/UdfNames.h"
#include "unicode/Unicode.h"

namespace velmora::image {

std::string RecordedName::Converted() const
{
    if (coding_ == NameCoding::Compressed) {
        return CompressedUnicode(text_);
    }
    std::string units;
    units.reserve(text_.size() * 2); // a character takes no more units than bytes
    for (std::size_t at = 0; at < text_.size();) {
        unicode::AppendUtf16(units, unicode::NextCodePoint(text_, at));
    }
    return units;
}

/// The first byte of a character tells its range: below 0xC4 it is below U+0100, from 0xF0 on it
/// takes two units.
std::size_t RecordedName::ConvertedSize() const
{
    unsigned units = 0;
    unsigned wide = 0;
    for (const char c : text_) {
        const auto byte = static_cast<unsigned char>(c);
        units
            += static_cast<unsigned>((byte & 0xC0U) != 0x80) + static_cast<unsigned>(byte >= 0xF0);
        wide |= static_cast<unsigned>(byte >= 0xC4);
    }
    if (coding_ == NameCoding::Units) {
        return std::size_t {units} * 2;
    }
    return 1 + std::size_t {units} * (wide == 0 ? 1 : 2);
}

} // namespace velmora::image
