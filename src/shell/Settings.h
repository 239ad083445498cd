// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::store {
class SettingsStore;
}

namespace velmora::shell {

// The application's settings: strings by application, section and key. They lie in the store under
// "Settings\AppName\Section".

/// A setting, or Default when it is missing, isn't a string or can't be read.
QString GetSetting(store::SettingsStore& store,
    const QString& AppName,
    const QString& Section,
    const QString& Key,
    const QString& Default);

/// Stores a setting. Error 5 when the store can't be written.
void SaveSetting(store::SettingsStore& store,
    const QString& AppName,
    const QString& Section,
    const QString& Key,
    const QString& Value);

} // namespace velmora::shell
