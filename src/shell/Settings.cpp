// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Settings.h"

#include "runtime/RuntimeError.h"
#include "shell/OpenKey.h"

namespace velmora::shell {

using namespace Qt::StringLiterals;
using store::ValueType;

namespace {

QString SettingsPath(const QString& AppName, const QString& Section)
{
    return u"Settings\\"_s + AppName + u'\\' + Section;
}

} // namespace

QString GetSetting(store::SettingsStore& store,
    const QString& AppName,
    const QString& Section,
    const QString& Key,
    const QString& Default)
{
    OpenKey key(store);
    ValueType type {};
    qint32 size = 0;
    QString buffer;
    const bool isRead
        = store.OpenKey(SettingsPath(AppName, Section), key.handle) == store::result::kDone
        && store.QueryValue(key.handle, Key, type, size) == store::result::kDone
        && type == ValueType::String && size > 0
        && store.ReadValue(key.handle, Key, size, buffer) == store::result::kDone;
    return isRead ? buffer.first(size - 1) : Default;
}

void SaveSetting(store::SettingsStore& store,
    const QString& AppName,
    const QString& Section,
    const QString& Key,
    const QString& Value)
{
    OpenKey key(store);
    if (store.CreateKey(SettingsPath(AppName, Section), key.handle) != store::result::kDone
        || store.SetValue(key.handle, Key, Value) != store::result::kDone) {
        throw runtime::RuntimeError(runtime::error::kInvalidCall,
            u"Les réglages n'ont pas pu être enregistrés : vérifiez vos droits sur le fichier "
            "velmora/settings.json de votre dossier de configuration, et qu'il n'est pas abîmé."_s);
    }
}

} // namespace velmora::shell
