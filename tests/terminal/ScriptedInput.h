// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/LineSource.h"

#include <deque>
#include <functional>

namespace velmora::terminal {

/// Answers as the test has planned; at the end of input when nothing is left.
class ScriptedInput final : public LineSource {
public:
    std::optional<std::string> ReadLine() override
    {
        if (onRead) onRead();
        if (lines.empty()) return std::nullopt;
        std::string line = lines.front();
        lines.pop_front();
        return line;
    }

    std::deque<std::string> lines;
    std::function<void()> onRead; ///< done before each answer
};

} // namespace velmora::terminal
