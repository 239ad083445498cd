// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "unicode/HarmlessText.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::terminal {

/// A whole number in groups of three: "1 234 567".
std::string NumberText(std::uint64_t number);

/// A number with its noun: "0 fichier", "1 fichier", "2 fichiers".
std::string CountText(std::uint64_t number, std::string_view one, std::string_view many);

/// A number of bytes in decimal units with at most four digits before the comma: "1 234,5 Mo".
std::string SizeText(std::uint64_t bytes);

/// A span of time in whole seconds, with ordinary blanks: "42 s", "3 min 05 s", "1 h 02 min".
std::string DurationText(std::chrono::seconds duration);

using unicode::HarmlessText;

/// The requested sums are missing, as the folder has a file of their name.
std::string OtherSumsText();

/// A path or a name for display: harmless and between guillemets.
std::string Quoted(std::string_view bytes);

} // namespace velmora::terminal
