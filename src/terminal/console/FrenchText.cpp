// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/FrenchText.h"

#include "unicode/Unicode.h"

#include <array>

namespace velmora::terminal {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Marks that change the direction of what follows, and the separators that break a line.
bool RedirectsText(char32_t c)
{
    return (c >= 0x200E && c <= 0x200F) || (c >= 0x2028 && c <= 0x202E)
        || (c >= 0x2066 && c <= 0x2069) || c == 0x061C;
}

char32_t Harmless(char32_t c)
{
    constexpr char32_t kControlPictures = 0x2400;
    constexpr char32_t kDeletePicture = 0x2421;
    if (c < 0x20) {
        return kControlPictures + c;
    }
    if (c == 0x7F) {
        return kDeletePicture;
    }
    if (c >= 0x80 && c < 0xA0) {
        return kReplacement; // some terminals obey these as they obey ESC
    }
    if (c == unicode::kUndecodable || RedirectsText(c)) {
        return kReplacement;
    }
    return c;
}

std::string TwoDigits(std::chrono::seconds::rep number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

std::string NumberText(std::uint64_t number)
{
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > 3;) {
        text.insert(at -= 3, " ");
    }
    return text;
}

std::string CountText(std::uint64_t number, std::string_view one, std::string_view many)
{
    return NumberText(number).append(" ").append(number < 2 ? one : many);
}

std::string SizeText(std::uint64_t bytes)
{
    constexpr std::uint64_t kLargest = 10000; // from here on the next unit reads better
    constexpr std::array kUnits {" Ko", " Mo", " Go", " To"};
    if (bytes < kLargest) {
        return CountText(bytes, "octet", "octets");
    }
    std::uint64_t tenth = 100; // bytes in a tenth of the unit
    std::size_t unit = 0;
    while (unit + 1 < kUnits.size() && bytes >= kLargest * tenth * 10) {
        tenth *= 1000;
        ++unit;
    }
    const std::uint64_t tenths = bytes / tenth + (bytes % tenth >= tenth / 2 ? 1 : 0);
    return NumberText(tenths / 10) + "," + std::to_string(tenths % 10) + kUnits.at(unit);
}

std::string DurationText(std::chrono::seconds duration)
{
    const auto seconds = duration.count();
    if (seconds < 60) {
        return std::to_string(seconds) + " s";
    }
    if (seconds < 3600) {
        return std::to_string(seconds / 60) + " min " + TwoDigits(seconds % 60) + " s";
    }
    return std::to_string(seconds / 3600) + " h " + TwoDigits(seconds / 60 % 60) + " min";
}

std::string HarmlessText(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        unicode::AppendUtf8(text, Harmless(unicode::NextCodePoint(bytes, at)));
    }
    return text;
}

std::string Quoted(std::string_view bytes) { return "« " + HarmlessText(bytes) + " »"; }

} // namespace velmora::terminal
