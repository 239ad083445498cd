// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velmora::terminal {

/// What is asked of the drives.
enum class DriveQuestion : std::uint8_t {
    Recorders, ///< which ones there are
    Media,     ///< what lies in one of them
    Report,    ///< what those who work on the program need to know of one of them
};

/// Who the answer is for.
enum class AnswerForm : std::uint8_t { Table, Json };

/// A question about the drives of the machine; nothing is changed by it.
struct DriveRequest {
    DriveQuestion question = DriveQuestion::Recorders;
    AnswerForm form = AnswerForm::Table;
    std::uint32_t recorder = 0; ///< its number in the list, from 1 on; 0 = the first that works
};

} // namespace velmora::terminal
