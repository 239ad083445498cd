// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/names/NameRules.h"

namespace velmora::image {

/// OSTA Compressed Unicode (UDF 2.1.1): a compression ID (8 or 16) and the characters, one byte
/// each when all of them are below 256, else UTF-16 with the high byte first. Bytes that are not
/// UTF-8, and the two code points that UDF excludes, become '_'.
std::string CompressedUnicode(std::string_view utf8);

/// The text of a compressed string, in UTF-8.
std::string FromCompressedUnicode(std::string_view compressed);

/// Cuts a compressed string to a number of bytes, its compression ID counted; `tail` (ASCII) is
/// inserted before its extension.
std::string CutCompressed(std::string_view compressed, std::size_t maxBytes, std::string_view tail);

/// File identifiers of UDF: everything except '/' and NUL can be kept, in 254 or 127 characters.
class UdfNames : public NameRules {
public:
    static constexpr std::size_t kMaxBytes
        = 255; ///< of a file identifier, its compression ID counted

    NameCoding Coding() const override { return NameCoding::Compressed; }
    std::string Form(std::string_view source, NameOf kind) const override;
    bool IsOwnForm(std::string_view source) const override;
    std::string Numbered(std::string_view source, NameOf kind, unsigned n) const override;
    std::string Readable(std::string_view form) const override;
    bool IsKept(std::string_view form, std::string_view source) const override;
};

} // namespace velmora::image
