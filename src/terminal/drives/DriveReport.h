// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/drives/MediaLook.h"
#include "terminal/drives/RecorderSurvey.h"

#include <QJsonObject>

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::terminal {

/// The list of recorders as lines of a table with a head.
std::vector<std::string> RecorderTable(const std::vector<SurveyedRecorder>& recorders);

/// The list of recorders as a JSON array.
std::string RecorderJson(const std::vector<SurveyedRecorder>& recorders);

/// A disc as lines of a table of names and values.
/// @param number  the recorder's place in the list, from 1 on
std::vector<std::string> MediaTable(
    std::uint32_t number, const SurveyedRecorder& recorder, const MediaLook& look);

/// A recorder as in the list of recorders.
QJsonObject RecorderObject(std::size_t number, const SurveyedRecorder& recorder);

/// A disc and its recorder; "type" is null without a disc.
QJsonObject MediaObject(
    std::uint32_t number, const SurveyedRecorder& recorder, const MediaLook& look);

/// The same as text.
std::string MediaJson(
    std::uint32_t number, const SurveyedRecorder& recorder, const MediaLook& look);

} // namespace velmora::terminal
