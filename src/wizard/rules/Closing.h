// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::wizard {

class ClosingScreen;

/// When the window goes. A disc that is being written would be lost with it, so that it waits for
/// the end of a task.
class Closing {
public:
    /// @param screen  must outlive this
    explicit Closing(ClosingScreen& screen);

    /// Somebody closes the window.
    /// @return whether it goes at once; if not, it goes when the task is over
    bool MayClose(bool isTaskRunning);

    /// A task is over. What a person must see of its end keeps the window, but not at the end of
    /// the program.
    void OnTaskEnd(bool hasNewsToSee);

    /// The session ends, or somebody ends the program from outside: what is going on is stopped, a
    /// question is answered with no, and the window goes.
    void End(bool isTaskRunning);

    /// The program is ended from outside: nothing is waited for.
    bool IsEnding() const { return isEnding_; }

private:
    ClosingScreen& screen_;
    bool isWanted_ = false; ///< somebody closed the window when it couldn't go
    bool isEnding_ = false;
};

} // namespace velmora::wizard
