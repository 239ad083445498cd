// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/BurnRecord.h"
#include "records/WriteFailure.h"
#include "terminal/drives/MediaLook.h"
#include "terminal/drives/RecorderSurvey.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velmora::terminal {

/// A recorder, and the result of examining its disc.
struct ReportedDrive {
    std::uint32_t number = 0; ///< in the list of recorders, from 1 on
    const SurveyedRecorder& recorder;
    std::optional<MediaLook> look {};
    std::optional<runtime::RuntimeError> failure {}; ///< of examining it
};

/// What Velmora's developers need to know about a drive that works well or badly: program and
/// system, drive, disc, the last burn and the last failed write. A JSON object for an e-mail,
/// without the name of any file, disc or person.
std::string MaintainerReport(const ReportedDrive& drive,
    const std::optional<records::BurnRecord>& lastBurn,
    const std::optional<records::WriteFailure>& lastFailure);

} // namespace velmora::terminal
