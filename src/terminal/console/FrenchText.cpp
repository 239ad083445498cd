// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/FrenchText.h"

#include "runtime/Formats.h"

#include <array>

namespace velmora::terminal {

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
    return runtime::FormatDuration(duration, u' ').toStdString();
}

std::string OtherSumsText()
{
    return "Attention : le dossier a déjà un « SHA256SUMS », qui est gardé tel quel ; aucune autre "
           "somme n'est écrite.";
}

std::string Quoted(std::string_view bytes) { return "« " + HarmlessText(bytes) + " »"; }

} // namespace velmora::terminal
