// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/SettingsStore.h"

namespace velmora::shell {

/// A key of the store that is closed at the end of its scope.
class OpenKey {
public:
    explicit OpenKey(store::SettingsStore& store)
        : store_(store)
    {
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey()
    {
        if (handle != store::KeyHandle::None) {
            store_.CloseKey(handle);
        }
    }

    /// Lets the key stay open until the program ends.
    void LeaveOpen() { handle = store::KeyHandle::None; }

    store::KeyHandle handle = store::KeyHandle::None;

private:
    store::SettingsStore& store_;
};

} // namespace velmora::shell
