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

    /// The user closes the window.
    /// @return whether it goes at once; if not, it goes when the task is over
    bool MayClose(bool isTaskRunning);

    /// A task is over. An outcome that the user must see keeps the window open, but not at the end
    /// of the program.
    void OnTaskEnd(bool hasNewsToSee);

    /// The session ends, or the program is ended from outside: the current task is stopped,
    /// questions are answered with no, and the window closes.
    void End(bool isTaskRunning);

    /// The program is ended from outside: nothing is waited for.
    bool IsEnding() const { return isEnding_; }

private:
    ClosingScreen& screen_;
    bool isWanted_ = false; ///< the user closed the window when it couldn't close
    bool isEnding_ = false;
};

} // namespace velmora::wizard
