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

} // namespace velmora::image
