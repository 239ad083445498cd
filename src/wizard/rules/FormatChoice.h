// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/FormatScreen.h"

#include <QString>

#include <vector>

namespace velmora::compilation {
class CapacityAccount;
}
namespace velmora::imapi {
class Mastering;
}
namespace velmora::recorder {
struct DetectedMedia;
struct RecorderState;
struct SpeedEntry;
} // namespace velmora::recorder
namespace velmora::runtime {
class Clock;
}
namespace velmora::shell {
struct ProgramState;
}
namespace velmora::writing {
class BurnScreen;
}

namespace velmora::wizard {

class Navigation;
class NavigationScreen;

/// What the choice of a format depends on. All of it outlives the choice.
struct FormatChoiceContext {
    shell::ProgramState& state;
    recorder::RecorderState& recorders;
    imapi::Mastering& mastering;
    runtime::Clock& clock;
    compilation::CapacityAccount& capacity;
    FormatScreen& screen;
    NavigationScreen& pages;
    writing::BurnScreen& burnPage; ///< for the wait panel, the pointer, the pump and the boxes
    Navigation& navigation;
};

/// The choice of a disc format. Three formats are a promise, whose figures come from a table; the
/// fourth asks the recorder what is in it.
class FormatChoice {
public:
    explicit FormatChoice(const FormatChoiceContext& context);

    /// The click of a format button: sets up the options page and opens it when the compilation
    /// fits. A grey button does nothing.
    void CorvaneButton2(shell::DiscFormat format);

    /// Sets up the options page and the capacity for a format. MediaTypeChoice tells the outcome:
    /// Failed, or the disc to be found. Failures inside are ignored, one statement at a time.
    void ChooseDiscFormat(shell::DiscFormat format);

private:
    void ClearOptions(shell::DiscFormat format);
    void TakeFixed(shell::DiscFormat format);
    void TakeDiscInDrive();
    recorder::DetectedMedia Detect();
    void ShowWaitPanel();
    void RefuseDisc(const recorder::DetectedMedia& disc);
    void TakeDisc(const recorder::DetectedMedia& disc);
    void FillSpeeds(const std::vector<recorder::SpeedEntry>& SpeedList);
    void TakeFamily(const QString& family);
    void ShowCapacity();

    FormatChoiceContext context_;
};

} // namespace velmora::wizard
