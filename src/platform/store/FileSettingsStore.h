// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/SettingsStore.h"

#include <QJsonObject>

#include <functional>
#include <map>
#include <optional>

namespace velmora::store {

/// The store as one JSON file that a person can read and edit: an object for each key, in it a
/// string, number or other value for each name. It is read for every query and replaced as a whole,
/// so that two programs may use it at once and a crash leaves either the old file or the new one.
///
/// A program never fails because of its settings. A damaged file is set aside under a name of its
/// own, and the settings start afresh. If the file can't be read or written, they live in memory
/// until the program ends.
class FileSettingsStore final : public SettingsStore {
public:
    /// Told once, in a French sentence, what is wrong with the file.
    using Trouble = std::function<void(const QString& message)>;

    /// @param path  native path of the file; it and its folders are made with the first key
    explicit FileSettingsStore(QString path, Trouble tell = {});

    /// The user's own file: velmora/settings.json below the per-user configuration folder.
    static QString PathOfUser();

    qint32 CreateKey(const QString& path, KeyHandle& key) override;
    qint32 OpenKey(const QString& path, KeyHandle& key) override;
    void CloseKey(KeyHandle key) override;
    qint32 SetValue(KeyHandle key, const QString& name, const QString& text) override;
    qint32 QueryValue(KeyHandle key, const QString& name, ValueType& type, qint32& size) override;
    qint32 ReadValue(KeyHandle key, const QString& name, qint32 size, QString& buffer) override;

private:
    KeyHandle Remember(const QString& path);
    QJsonObject Keys();
    void PutAside();
    void KeepInMemory(const QJsonObject& keys, const QString& trouble);
    void Tell(const QString& trouble);
    bool Save(const QJsonObject& keys) const;
    qint32 FindValue(KeyHandle key, const QString& name, QJsonValue& value);
    template <class Change> void ChangeFile(Change&& change);

    QString path_;
    Trouble tell_;
    std::optional<QJsonObject> kept_; // instead of the file
    std::map<KeyHandle, QString> open_;
    qint32 lastHandle_ = 0;
};

} // namespace velmora::store
