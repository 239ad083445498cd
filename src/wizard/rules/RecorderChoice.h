// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::recorder {
struct RecorderState;
}
namespace velmora::shell {
struct ProgramState;
}
namespace velmora::store {
class SettingsStore;
}

namespace velmora::wizard {

class FormatScreen;
class StartScreen;

/// The choice of a recorder.
class RecorderChoice {
public:
    /// All of it must outlive the choice.
    RecorderChoice(shell::ProgramState& state,
        const recorder::RecorderState& recorders,
        store::SettingsStore& settings,
        StartScreen& screen,
        FormatScreen& formats);

    /// The click of Combo1: uses the selected recorder, shows what it can write, and remembers it
    /// for the next start. Error 5 when it can't be remembered.
    void Combo1();

private:
    shell::ProgramState& state_;
    const recorder::RecorderState& recorders_;
    store::SettingsStore& settings_;
    StartScreen& screen_;
    FormatScreen& formats_;
};

} // namespace velmora::wizard
