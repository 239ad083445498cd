// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

namespace velmora::desktop {
class FileChooser;
}
namespace velmora::store {
class SettingsStore;
}

namespace velmora::wizard {

/// Asks for the folder to burn, starting where one was chosen the last time, and remembers it.
/// Errors: those of GetRegString and SaveRegString.
/// @return empty when the user gave up
text::ProgramPath ChooseFolder(desktop::FileChooser& chooser, store::SettingsStore& settings);

} // namespace velmora::wizard
