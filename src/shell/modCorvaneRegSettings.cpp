// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/modCorvaneRegSettings.h"

#include "runtime/RuntimeError.h"
#include "runtime/TextRules.h"
#include "shell/OpenKey.h"

namespace velmora::shell {

using namespace Qt::StringLiterals;
using runtime::RuntimeError;

namespace {

constexpr auto kNoAppName = static_cast<qint32>(0x800403E8);
constexpr auto kNoSection = static_cast<qint32>(0x800403E9);
constexpr auto kNoKey = static_cast<qint32>(0x800403EA);
constexpr auto kStoreError = static_cast<qint32>(0x800407D0);

bool IsBlank(const QString& text) { return runtime::Trim(text).isEmpty(); }

/// @param noKey  the words for a blank Key, which the two routines don't share
void CheckNames(
    const QString& AppName, const QString& Section, const QString& Key, const QString& noKey)
{
    if (IsBlank(AppName)) {
        throw RuntimeError(kNoAppName, u"AppName doit être renseigné"_s);
    }
    if (IsBlank(Section)) {
        throw RuntimeError(kNoSection, u"Section doit être renseigné"_s);
    }
    if (IsBlank(Key)) {
        throw RuntimeError(kNoKey, noKey);
    }
}

QString RegistryPath(const QString& AppName, const QString& Section)
{
    return u"SOFTWARE\\"_s + runtime::Trim(AppName) + u"\\Settings\\"_s + runtime::Trim(Section);
}

void Check(qint32 answer, const QString& description)
{
    if (answer != store::result::kDone) {
        throw RuntimeError(kStoreError + answer, description);
    }
}

} // namespace

void SaveRegString(store::SettingsStore& store,
    const QString& AppName,
    const QString& Section,
    const QString& Key,
    const QString& Setting)
{
    CheckNames(AppName, Section, Key, u"Key doit être renseigné"_s);
    OpenKey key(store);
    Check(store.CreateKey(RegistryPath(AppName, Section), key.handle),
        u"Impossible d'ouvrir ou de créer la clef de registre"_s);
    Check(store.SetValue(key.handle, Key, Setting), u"Impossible d'écrire la clef de registre"_s);
}

QString GetRegString(store::SettingsStore& store,
    const QString& AppName,
    const QString& Section,
    const QString& Key,
    const QString& Default)
{
    CheckNames(AppName, Section, Key, u"Key  doit être renseigné"_s);
    OpenKey key(store);
    const qint32 opened = store.OpenKey(RegistryPath(AppName, Section), key.handle);
    if (opened == store::result::kNotFound) {
        return Default;
    }
    Check(opened, u"Impossible d'ouvrir cette clef de registre"_s);

    store::ValueType type {};
    qint32 size = 0;
    if (store.QueryValue(key.handle, Key, type, size) != store::result::kDone) {
        key.LeaveOpen();
        return Default;
    }
    if (type != store::ValueType::String) {
        throw RuntimeError(kStoreError + static_cast<qint32>(type),
            u"Les données de la clef de registre ne sont pas une chaine de caractères"_s);
    }
    if (size == 0) {
        return {};
    }
    QString buffer;
    if (store.ReadValue(key.handle, Key, size, buffer) != store::result::kDone) {
        return Default;
    }
    return buffer.first(size - 1);
}

} // namespace velmora::shell
