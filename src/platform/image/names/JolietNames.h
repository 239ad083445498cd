// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/names/NameRules.h"

namespace velmora::image {

/// Identifiers of the Joliet tree: UTF-16, high byte first, without control characters and
/// without * / : ; ? and backslash (Joliet specification, "Allowed Character Set").
class JolietNames : public NameRules {
public:
    static constexpr std::size_t kPaperLength = 64;  ///< units, according to the specification
    static constexpr std::size_t kUsualLength = 103; ///< units that readers accept

    explicit JolietNames(std::size_t maxUnits)
        : maxUnits_(maxUnits)
    {
    }

    NameCoding Coding() const override { return NameCoding::Units; }
    std::string Form(std::string_view source, NameOf kind) const override;
    bool IsOwnForm(std::string_view source) const override;
    std::string Numbered(std::string_view source, NameOf kind, unsigned n) const override;
    std::string_view Key(
        std::string_view form) const override; ///< readers drop dots and blanks at the end
    std::string Readable(std::string_view form) const override;
    bool IsKept(std::string_view form, std::string_view source) const override;

private:
    std::size_t maxUnits_;
};

} // namespace velmora::image
