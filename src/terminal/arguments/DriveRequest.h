// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velmora::terminal {

/// What to find out about the drives.
enum class DriveQuestion : std::uint8_t {
    Recorders, ///< which ones there are
    Media,     ///< what is in one of them
    Report,    ///< what the program's developers need to know about one of them
};

/// Who the answer is for.
enum class AnswerForm : std::uint8_t { Table, Json };

/// A query about the drives of the machine; it changes nothing.
struct DriveRequest {
    DriveQuestion question = DriveQuestion::Recorders;
    AnswerForm form = AnswerForm::Table;
    std::uint32_t recorder = 0; ///< its number in the list, from 1 on; 0 = the first that works
};

} // namespace velmora::terminal
