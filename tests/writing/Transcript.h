// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace velmora::test {

/// What a run showed, asked and told the platform, one line each. A test may have something happen
/// at a line: the user stops the run, the platform fails or sends an event.
class Transcript {
public:
    void Tell(const QString& line)
    {
        const std::string told = line.toStdString();
        text_ += told + '\n';
        const auto action = actions_.find(told);
        if (action != actions_.end()) {
            action->second();
        }
    }

    /// Does something whenever the line comes up.
    void At(const std::string& line, std::function<void()> action)
    {
        actions_[line] = std::move(action);
    }

    /// The lines since the start or the last Clear.
    const std::string& Text() const { return text_; }
    void Clear() { text_.clear(); }

private:
    std::string text_;
    std::map<std::string, std::function<void()>> actions_;
};

/// A text in quotation marks, its line ends visible.
inline QString Quoted(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("<CR LF>"));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace velmora::test
