// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::store {
class SettingsStore;
}

namespace velmora::shell {

// The settings module of the program's own: string values under the key
// "SOFTWARE\AppName\Settings\Section", where blanks around AppName and Section don't count. A blank
// AppName, Section or Key is refused, in this order, with the errors 0x800403E8, 0x800403E9 and
// 0x800403EA. A failure of the store raises 0x800407D0 plus the store's result.

/// Stores a value.
void SaveRegString(store::SettingsStore& store,
    const QString& AppName,
    const QString& Section,
    const QString& Key,
    const QString& Setting);

/// A value, or Default when the key or the value isn't there. A value that isn't a string raises
/// 0x800407D0 plus its type.
QString GetRegString(store::SettingsStore& store,
    const QString& AppName,
    const QString& Section,
    const QString& Key,
    const QString& Default);

} // namespace velmora::shell
