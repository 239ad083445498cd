// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/PublishedCodes.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "shell/MessageDoor.h"
#include "shell/PointerDoor.h"

#include <deque>
#include <functional>
#include <map>
#include <string>

namespace velmora::test {

/// What the platform answers in a detection, and the calls that it got, one line each.
class Script {
public:
    /// Writes a line, does what the test wants at it, and fails as the test has planned.
    void Hear(const std::string& line)
    {
        text_ += line + '\n';
        ++counts_[line];
        if (onLine) onLine(line);
        std::deque<qint32>& waiting = failures_[line];
        if (waiting.empty()) return;
        const qint32 number = waiting.front();
        waiting.pop_front();
        if (number != 0) throw runtime::RuntimeError(number);
    }

    /// The next calls of that line, this many, raise the number.
    void Fail(const std::string& line, qint32 number, int times = 1)
    {
        failures_[line].insert(failures_[line].end(), static_cast<std::size_t>(times), number);
    }

    const std::string& Text() const { return text_; }
    int Count(const std::string& line) const
    {
        const auto found = counts_.find(line);
        return found == counts_.end() ? 0 : found->second;
    }

    qint32 type = 2;
    bool recorderSupported = true;
    bool mediaSupported = true;
    bool blank = true;
    QList<quint32> speeds {3600, 2400, 1200};
    qint32 freeBlocks = 359'847;
    shell::MessageAnswer answer = shell::MessageAnswer::Ok;
    std::function<void(const std::string&)> onLine;

private:
    std::string text_;
    std::map<std::string, int> counts_;
    std::map<std::string, std::deque<qint32>> failures_;
};

/// A clock, a pump, a pointer and a message box that record their calls.
class ScriptedDoors final : public runtime::Clock,
                            public runtime::EventPump,
                            public shell::PointerDoor,
                            public shell::MessageDoor {
public:
    explicit ScriptedDoors(Script& script)
        : script_(script)
    {
    }

    double Timer() const override { return seconds; }
    QDateTime Now() const override { return {}; }
    void Pause(double length) override
    {
        seconds += length;
        script_.Hear("Pause " + std::to_string(static_cast<int>(length)));
    }
    void Pump() override { script_.Hear("DoEvents"); }
    void SetMousePointer(shell::MousePointer pointer) override
    {
        script_.Hear("pointer " + std::to_string(static_cast<int>(pointer)));
    }
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override
    {
        script_.Hear("MsgBox " + title.toStdString() + ", " + std::to_string(style) + ": "
            + text.toStdString());
        return script_.answer;
    }

    double seconds = 0;

private:
    Script& script_;
};

} // namespace velmora::test
