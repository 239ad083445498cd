// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/RunNotice.h"

#include <QString>

#include <functional>
#include <memory>

namespace velmora::compilation {
class SourceFiles;
}
namespace velmora::desktop {
class FileChooser;
}
namespace velmora::imapi {
class IImageForecast;
class Mastering;
} // namespace velmora::imapi
namespace velmora::runtime {
class Clock;
class EventPump;
} // namespace velmora::runtime
namespace velmora::store {
class SettingsStore;
}
namespace velmora::writing {
class StopCompanion;
}

namespace velmora::wizard {

class SideWork;

/// What the desktop does during work on a disc. Empty functions are skipped.
struct RunAttendance {
    /// Keeps the machine awake for the lifetime of its result; the reason is for the user.
    std::function<std::shared_ptr<void>(const QString& reason)> hold {};
    /// Reports the end to a user who is in another program.
    std::function<void(const RunNotice& end)> tell {};
    /// Calls a user who is in another program to a waiting box, by its title and text.
    std::function<void(const QString& title, const QString& text)> call {};
};

/// What the window depends on. All of it outlives the wizard.
struct WizardContext {
    imapi::Mastering& mastering;
    const imapi::IImageForecast& forecast;
    runtime::Clock& clock;
    runtime::EventPump& pump;
    compilation::SourceFiles& files;
    desktop::FileChooser& chooser;
    store::SettingsStore& settings;
    writing::StopCompanion& companion;
    SideWork& sideWork;
    RunAttendance attendance {};
};

} // namespace velmora::wizard
