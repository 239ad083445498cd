// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/MessageDoor.h"

#include <deque>
#include <vector>

namespace velmora::test {

struct ShownMessage {
    QString text;
    qint32 style = 0;
    QString title;
};

/// Records every box that is shown, and answers as the test has planned: Ok when nothing is left.
class RecordedMessages final : public shell::MessageDoor {
public:
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override
    {
        shown.push_back({text, style, title});
        if (answers.empty()) {
            return shell::MessageAnswer::Ok;
        }
        const shell::MessageAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::vector<ShownMessage> shown;
    std::deque<shell::MessageAnswer> answers;
};

} // namespace velmora::test
