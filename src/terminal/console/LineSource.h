// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace velmora::terminal {

/// Where the user's answers come from.
class LineSource {
public:
    LineSource() = default;
    virtual ~LineSource() = default;
    LineSource(const LineSource&) = delete;
    LineSource& operator=(const LineSource&) = delete;
    LineSource(LineSource&&) = delete;
    LineSource& operator=(LineSource&&) = delete;

    /// Waits for a line, returned without its line feed; nothing at the end, and when a stop is
    /// requested.
    virtual std::optional<std::string> ReadLine() = 0;
};

/// The process' own standard input.
class StandardInput final : public LineSource {
public:
    /// @param stopRequested  asked about 25 times a second
    explicit StandardInput(std::function<bool()> stopRequested);

    std::optional<std::string> ReadLine() override;

private:
    bool WaitForBytes() const;

    std::function<bool()> stopRequested_;
    std::string read_; // what came after the last line
};

} // namespace velmora::terminal
