// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/names/NameRules.h"

namespace velmora::image {

/// Letters, digits and '_' (ECMA-119 7.4.1), made of any text: upper-cased, accents removed,
/// everything else '_'; one for each character, or for each byte that isn't part of one. Dots stay.
std::string ToDCharacters(std::string_view utf8);

/// Identifiers of plain ISO 9660: d-characters, one dot in a file's (ECMA-119 7.5, 7.6, clause 10).
class IsoNames : public NameRules {
public:
    enum class Length : bool {
        EightDotThree, ///< level 1 (ECMA-119 10.1)
        ThirtyOne, ///< levels 2 and 3: name and extension together 30, a directory 31 (10.2, 7.6.3)
    };

    explicit IsoNames(Length length)
        : length_(length)
    {
    }

    std::string Form(std::string_view source, NameOf kind) const override;
    std::string Numbered(std::string_view source, NameOf kind, unsigned n) const override;
    std::string_view Key(
        std::string_view form) const override; ///< a file `X.` and a directory `X` are one
    std::string Readable(std::string_view form) const override;
    bool IsKept(std::string_view form, std::string_view source) const override;
    bool IsNearlyKept(std::string_view form, std::string_view source) const override;

private:
    std::string Build(std::string_view source, NameOf kind, const std::string& tail) const;

    Length length_;
};

} // namespace velmora::image
