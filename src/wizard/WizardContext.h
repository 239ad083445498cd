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

/// What the desktop does for work on a disc. Where it is empty, the work goes on alone.
struct RunAttendance {
    /// Keeps the machine awake as long as what it returns lives; the reason is for a person.
    std::function<std::shared_ptr<void>(const QString& reason)> hold {};
    /// Tells the end to somebody who looks at another program.
    std::function<void(const RunNotice& end)> tell {};
    /// Calls somebody who looks at another program to a box that waits, by its title and its text.
    std::function<void(const QString& title, const QString& text)> call {};
};

/// The world around the window. All of it outlives the wizard.
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
