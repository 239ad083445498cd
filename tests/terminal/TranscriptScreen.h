// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/TerminalScreen.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace velmora::terminal {

/// A screen that records what it was shown: "= " before a result, "! " before a notice, "~ " before
/// the line of progress.
class TranscriptScreen : public TerminalScreen {
public:
    explicit TranscriptScreen(ProgressStyle style = ProgressStyle::PlainLines)
        : style_(style)
    {
    }

    ProgressStyle Style() const override { return style_; }
    void Result(const std::string& line) override { Add("= " + line); }
    void Notice(const std::string& line) override { Add("! " + line); }
    void Progress(const std::string& line) override { Add("~ " + line); }

    const std::vector<std::string>& Lines() const { return lines_; }

    /// Does something at the moment when a line that begins so is shown.
    void When(std::string beginning, std::function<void()> action)
    {
        beginning_ = std::move(beginning);
        action_ = std::move(action);
    }

    bool Shows(const std::string& part) const
    {
        for (const auto& line : lines_)
            if (line.find(part) != std::string::npos) return true;
        return false;
    }

    std::string Text() const
    {
        std::string text;
        for (const auto& line : lines_)
            text += line + "\n";
        return text;
    }

private:
    void Add(std::string line)
    {
        const bool awaited = action_ && line.starts_with(beginning_);
        lines_.push_back(std::move(line));
        if (awaited) action_();
    }

    ProgressStyle style_;
    std::vector<std::string> lines_;
    std::string beginning_;
    std::function<void()> action_;
};

} // namespace velmora::terminal
