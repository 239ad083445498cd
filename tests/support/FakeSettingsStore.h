// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/SettingsStore.h"

#include <QMap>
#include <QStringList>

#include <map>
#include <utility>

namespace velmora::test {

/// A store in memory that fails as the test has planned and records every call.
class FakeSettingsStore final : public store::SettingsStore {
public:
    struct Value {
        store::ValueType type = store::ValueType::String;
        QString text;
    };

    qint32 CreateKey(const QString& path, store::KeyHandle& key) override
    {
        if (const qint32 failure = Hear(u"CreateKey", path)) return failure;
        keys[path];
        return Open(path, key);
    }
    qint32 OpenKey(const QString& path, store::KeyHandle& key) override
    {
        if (const qint32 failure = Hear(u"OpenKey", path)) return failure;
        return keys.contains(path) ? Open(path, key) : store::result::kNotFound;
    }
    void CloseKey(store::KeyHandle key) override
    {
        Hear(u"CloseKey", {});
        open.erase(key);
    }
    qint32 SetValue(store::KeyHandle key, const QString& name, const QString& text) override
    {
        if (const qint32 failure = Hear(u"SetValue", name)) return failure;
        keys[open.at(key)][name] = {store::ValueType::String, text};
        return store::result::kDone;
    }
    qint32 QueryValue(
        store::KeyHandle key, const QString& name, store::ValueType& type, qint32& size) override
    {
        if (const qint32 failure = Hear(u"QueryValue", name)) return failure;
        const auto& values = keys[open.at(key)];
        if (!values.contains(name)) return store::result::kNotFound;
        type = values[name].type;
        size = static_cast<qint32>(values[name].text.size()) + (countsTerminator ? 1 : 0);
        return store::result::kDone;
    }
    qint32 ReadValue(
        store::KeyHandle key, const QString& name, qint32 size, QString& buffer) override
    {
        if (const qint32 failure = Hear(u"ReadValue", name)) return failure;
        buffer = (keys[open.at(key)][name].text + QChar(u'\0')).first(size);
        return store::result::kDone;
    }

    /// All calls since the last time.
    QStringList Calls() { return std::exchange(calls_, {}); }

    QMap<QString, QMap<QString, Value>> keys;
    std::map<store::KeyHandle, QString> open;
    QMap<QString, qint32> failures; ///< what a call of that name answers from now on
    bool countsTerminator = true;

private:
    qint32 Open(const QString& path, store::KeyHandle& key)
    {
        key = static_cast<store::KeyHandle>(++last_);
        open[key] = path;
        return store::result::kDone;
    }
    qint32 Hear(QStringView call, const QString& what)
    {
        calls_ += (call.toString() + u' ' + what).trimmed();
        return failures.value(call.toString());
    }

    QStringList calls_;
    qint32 last_ = 0;
};

} // namespace velmora::test
