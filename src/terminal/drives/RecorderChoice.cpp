// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/RecorderChoice.h"

#include "terminal/drives/DriveWords.h"

#include <algorithm>

namespace velmora::terminal {

namespace {

/// From 0 on; past the list's end for a number that isn't in it.
std::size_t PlaceOf(std::uint32_t number, const std::vector<SurveyedRecorder>& found)
{
    if (number != 0) {
        return number - 1;
    }
    const auto works = [](const SurveyedRecorder& recorder) { return !recorder.failure; };
    const auto first = std::ranges::find_if(found, works);
    return first == found.end() ? 0 : static_cast<std::size_t>(first - found.begin());
}

} // namespace

std::optional<std::size_t> ChooseRecorder(
    std::uint32_t number, const std::vector<SurveyedRecorder>& found, TerminalScreen& screen)
{
    if (found.empty()) {
        Fail(screen, NoRecorderText());
        return std::nullopt;
    }
    const std::size_t place = PlaceOf(number, found);
    if (place >= found.size()) {
        Fail(screen,
            "il n'y a pas de graveur n° " + std::to_string(place + 1)
                + " : « velmora-cli recorders » en donne la liste.");
        return std::nullopt;
    }
    if (const auto& failure = found[place].failure) {
        Fail(screen, DriveFailureText(*failure), failure->Number());
        return std::nullopt;
    }
    return place;
}

} // namespace velmora::terminal
