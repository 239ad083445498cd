// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::store {

/// The result of a store operation, 0 for success. The program's errors are built from these
/// numbers.
namespace result {
inline constexpr qint32 kDone = 0;
inline constexpr qint32 kNotFound = 2;
inline constexpr qint32 kAccessDenied = 5;
inline constexpr qint32 kBadHandle = 6;
inline constexpr qint32 kMoreData = 234;
} // namespace result

/// The kinds of value. The program writes only strings, but may find what others have written.
enum class ValueType : qint32 { String = 1, Binary = 3, Number = 4 };

/// An open key of the store; it means something only to the store that gave it.
enum class KeyHandle : qint32 { None = 0 };

/// The per-user store of settings: named values under keys, whose paths have backslashes. Names of
/// keys and values are case-insensitive.
class SettingsStore {
public:
    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;
    virtual ~SettingsStore() = default;

    /// Opens a key for writing; makes it when it doesn't exist.
    virtual qint32 CreateKey(const QString& path, KeyHandle& key) = 0;
    /// Opens a key for reading; kNotFound when it doesn't exist.
    virtual qint32 OpenKey(const QString& path, KeyHandle& key) = 0;
    /// Forgets an open key.
    virtual void CloseKey(KeyHandle key) = 0;

    /// Writes a string value.
    virtual qint32 SetValue(KeyHandle key, const QString& name, const QString& text) = 0;
    /// Gets a value's type and its size in characters, including a string's terminator.
    virtual qint32 QueryValue(KeyHandle key, const QString& name, ValueType& type, qint32& size)
        = 0;
    /// Reads a string value, its terminator (U+0000) included, into room for `size` characters;
    /// kMoreData when it needs more.
    virtual qint32 ReadValue(KeyHandle key, const QString& name, qint32 size, QString& buffer) = 0;
};

} // namespace velmora::store
