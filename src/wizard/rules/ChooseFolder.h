// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::desktop {
class FileChooser;
}
namespace velmora::store {
class SettingsStore;
}

namespace velmora::wizard {

/// Asks for the folder to burn, beginning where one was found the last time, and remembers it.
/// Errors: those of GetRegString and SaveRegString.
/// @return its program path; empty when the user gave up
QString ChooseFolder(desktop::FileChooser& chooser, store::SettingsStore& settings);

} // namespace velmora::wizard
