// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velmora::test {

/// What a run showed, asked and told the platform, one line each. A test may have something happen
/// at a line: the user stops the run, the platform fails or sends an event.
class Transcript {
public:
    void Tell(const QString& line)
    {
        lines_.push_back(line.toStdString());
        const auto action = actions_.find(lines_.back());
        if (action != actions_.end()) {
            const auto kept = action->second; // it may remove itself
            kept();
        }
    }

    /// Does something whenever the line comes up.
    void At(const std::string& line, std::function<void()> action)
    {
        actions_[line] = std::move(action);
    }

    void NothingAt(const std::string& line) { actions_.erase(line); }

    /// Does something at the line's n-th occurrence from now on, counted from 1.
    void AtNth(const std::string& line, int number, std::function<void()> action)
    {
        At(line, [number, action = std::move(action), count = std::make_shared<int>()] {
            if (++*count == number) action();
        });
    }

    /// The lines since the start or the last Clear. Three or more equal ones are given once, with
    /// their number.
    std::string Text() const
    {
        constexpr std::size_t kMany = 3;
        std::string text;
        for (std::size_t first = 0; first < lines_.size();) {
            std::size_t end = first;
            while (end < lines_.size() && lines_[end] == lines_[first])
                ++end;
            const std::size_t times = end - first;
            if (times >= kMany) {
                text += lines_[first] + " x " + std::to_string(times) + '\n';
            } else {
                for (std::size_t i = 0; i < times; ++i)
                    text += lines_[first] + '\n';
            }
            first = end;
        }
        return text;
    }

    int Count(const std::string& line) const
    {
        return static_cast<int>(std::ranges::count(lines_, line));
    }
    bool Holds(const std::string& line) const { return Count(line) > 0; }

    /// The lines from the last one of that text on.
    std::string From(const std::string& line) const
    {
        const std::string text = Text();
        const auto at = text.rfind(line + '\n');
        return at == std::string::npos ? "no line: " + line : text.substr(at);
    }

    void Clear() { lines_.clear(); }

private:
    std::vector<std::string> lines_;
    std::map<std::string, std::function<void()>> actions_;
};

/// A text in quotation marks, its line ends visible.
inline QString Quoted(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("<CR LF>"));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace velmora::test
