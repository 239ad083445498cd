// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::wizard {

/// What the end of the program does to the window and to the task that runs.
class ClosingScreen {
public:
    ClosingScreen() = default;
    ClosingScreen(const ClosingScreen&) = delete;
    ClosingScreen& operator=(const ClosingScreen&) = delete;
    virtual ~ClosingScreen() = default;

    /// Tells that the window will close when the task is over (closeNotice), or no longer does.
    virtual void ShowCloseNotice(bool isVisible) = 0;
    /// Closes the window, as the user does: it asks once more whether it may.
    virtual void CloseWindow() = 0;
    /// Asks the run for its stop, as the stop button does.
    virtual void RequestStop() = 0;
    /// Answers with no what waits for an answer, if something does.
    virtual void DeclineQuestion() = 0;
};

} // namespace velmora::wizard
