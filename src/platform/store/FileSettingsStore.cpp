// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/FileSettingsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <utility>

namespace velmora::store {

using namespace Qt::StringLiterals;

namespace {

/// Another program holds the file only for as long as it takes to write a few lines.
constexpr std::chrono::milliseconds kPatience {2000};

/// The member of that name, whatever its case; the name itself when there is none.
QString MemberOf(const QJsonObject& object, const QString& name)
{
    const QStringList members = object.keys();
    const auto found = std::ranges::find_if(members,
        [&name](const QString& member) { return member.compare(name, Qt::CaseInsensitive) == 0; });
    return found == members.end() ? name : *found;
}

/// A pipe would block us until somebody writes into it, and a huge file would take long.
bool CanHoldSettings(const QString& path)
{
    constexpr qint64 kMostBytes = 1 << 20;
    const QFileInfo file(path);
    return file.isFile() && file.size() <= kMostBytes;
}

ValueType TypeOf(const QJsonValue& value)
{
    if (value.isString()) {
        return ValueType::String;
    }
    return value.isDouble() ? ValueType::Number : ValueType::Binary;
}

/// In characters for a string, else in bytes.
qint32 SizeOf(const QJsonValue& value)
{
    constexpr qint32 kNumberSize = 4;
    return value.isString() ? static_cast<qint32>(value.toString().size()) + 1 : kNumberSize;
}

} // namespace

FileSettingsStore::FileSettingsStore(QString path, Trouble tell)
    : path_(std::move(path))
    , tell_(std::move(tell))
{
}

QString FileSettingsStore::PathOfUser()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + u"/velmora/settings.json"_s;
}

qint32 FileSettingsStore::CreateKey(const QString& path, KeyHandle& key)
{
    ChangeFile([&path](QJsonObject& keys) {
        if (keys.contains(MemberOf(keys, path))) {
            return false;
        }
        keys.insert(path, QJsonObject());
        return true;
    });
    key = Remember(path);
    return result::kDone;
}

qint32 FileSettingsStore::OpenKey(const QString& path, KeyHandle& key)
{
    const QJsonObject keys = Keys();
    if (!keys.contains(MemberOf(keys, path))) {
        return result::kNotFound;
    }
    key = Remember(path);
    return result::kDone;
}

void FileSettingsStore::CloseKey(KeyHandle key) { open_.erase(key); }

qint32 FileSettingsStore::SetValue(KeyHandle key, const QString& name, const QString& text)
{
    const auto path = open_.find(key);
    if (path == open_.end()) {
        return result::kBadHandle;
    }
    ChangeFile([&](QJsonObject& keys) {
        const QString member = MemberOf(keys, path->second);
        QJsonObject values = keys.value(member).toObject();
        values.insert(MemberOf(values, name), text);
        const bool isNew = keys.value(member) != values;
        keys.insert(member, values);
        return isNew;
    });
    return result::kDone;
}

qint32 FileSettingsStore::QueryValue(
    KeyHandle key, const QString& name, ValueType& type, qint32& size)
{
    QJsonValue value;
    if (const qint32 answer = FindValue(key, name, value)) {
        return answer;
    }
    type = TypeOf(value);
    size = SizeOf(value);
    return result::kDone;
}

qint32 FileSettingsStore::ReadValue(
    KeyHandle key, const QString& name, qint32 size, QString& buffer)
{
    QJsonValue value;
    if (const qint32 answer = FindValue(key, name, value)) {
        return answer;
    }
    if (SizeOf(value) > size) {
        return result::kMoreData;
    }
    buffer = value.toString() + QChar(u'\0');
    return result::kDone;
}

KeyHandle FileSettingsStore::Remember(const QString& path)
{
    const auto key = static_cast<KeyHandle>(++lastHandle_);
    open_[key] = path;
    return key;
}

/// A file that isn't there, or is empty, holds no keys.
QJsonObject FileSettingsStore::Keys()
{
    if (kept_) {
        return *kept_;
    }
    QFile file(path_);
    if (!file.exists()) {
        return {};
    }
    if (!CanHoldSettings(path_) || !file.open(QIODevice::ReadOnly)) {
        KeepInMemory({}, u"Les réglages de Velmora ne peuvent pas être lus"_s);
        return {};
    }
    const QByteArray text = file.readAll();
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject() && !text.trimmed().isEmpty()) {
        PutAside();
    }
    return document.object();
}

void FileSettingsStore::PutAside()
{
    constexpr int kMostCopies = 9;
    for (int number = 1; number <= kMostCopies; ++number) {
        const QString copy = path_ + u".illisible-%1"_s.arg(number);
        if (QFile::rename(path_, copy)) { // takes no name that exists
            Tell(u"Les réglages de Velmora étaient illisibles : ils reprennent leurs valeurs de "
                 u"départ. L'ancien fichier est gardé sous le nom :\r\n"_s
                + copy);
            return;
        }
    }
    KeepInMemory({}, u"Les réglages de Velmora sont illisibles"_s);
}

void FileSettingsStore::KeepInMemory(const QJsonObject& keys, const QString& trouble)
{
    kept_ = keys;
    Tell(trouble + u" : ceux que vous changez valent jusqu'à la fin du programme. Vérifiez :\r\n"_s
        + path_);
}

void FileSettingsStore::Tell(const QString& trouble)
{
    if (const Trouble tell = std::exchange(tell_, {})) {
        tell(trouble);
    }
}

bool FileSettingsStore::Save(const QJsonObject& keys) const
{
    QSaveFile file(path_);
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(keys).toJson()) >= 0
        && file.commit();
}

qint32 FileSettingsStore::FindValue(KeyHandle key, const QString& name, QJsonValue& value)
{
    const auto path = open_.find(key);
    if (path == open_.end()) {
        return result::kBadHandle;
    }
    const QJsonObject keys = Keys();
    const QJsonObject values = keys.value(MemberOf(keys, path->second)).toObject();
    value = values.value(MemberOf(values, name));
    return value.isUndefined() ? result::kNotFound : result::kDone;
}

/// @param change  changes the keys; false when there was nothing to change
template <class Change> void FileSettingsStore::ChangeFile(Change&& change)
{
    QDir().mkpath(QFileInfo(path_).path());
    QLockFile lock(path_ + u".lock"_s);
    const bool isOurs = !kept_ && lock.tryLock(static_cast<int>(kPatience.count()));
    QJsonObject keys = Keys();
    if (!std::forward<Change>(change)(keys)) {
        return;
    }
    if (kept_) {
        kept_ = keys;
    } else if (!isOurs || !Save(keys)) {
        KeepInMemory(keys, u"Les réglages de Velmora ne peuvent pas être enregistrés"_s);
    }
}

} // namespace velmora::store
