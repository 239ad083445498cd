// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/Closing.h"

#include "wizard/rules/ClosingScreen.h"

namespace velmora::wizard {

Closing::Closing(ClosingScreen& screen)
    : screen_(screen)
{
}

bool Closing::MayClose(bool isTaskRunning)
{
    isWanted_ = isTaskRunning;
    screen_.ShowCloseNotice(isWanted_);
    return !isTaskRunning;
}

void Closing::OnTaskEnd(bool hasNewsToSee)
{
    if (!isWanted_) {
        return;
    }
    if (hasNewsToSee && !isEnding_) {
        isWanted_ = false;
        screen_.ShowCloseNotice(false);
    } else {
        screen_.CloseWindow();
    }
}

void Closing::End(bool isTaskRunning)
{
    isEnding_ = true;
    if (isTaskRunning) {
        screen_.RequestStop();
    }
    screen_.DeclineQuestion();
    screen_.CloseWindow();
}

} // namespace velmora::wizard
