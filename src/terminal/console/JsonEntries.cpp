// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/JsonEntries.h"

namespace velmora::terminal {

using namespace Qt::StringLiterals;

QString JsonText(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

void InsertBytes(QJsonObject& object, const QString& name, std::string_view bytes)
{
    const QString text = JsonText(bytes);
    object[name] = text;
    const QByteArray given(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (text.toUtf8() != given) {
        object[name + u"Bytes"_s] = QString::fromLatin1(given.toHex());
    }
}

void InsertErrorNumber(QJsonObject& object, qint32 number)
{
    object[u"number"_s] = number;
    if (number < 0) { // as published codes are
        object[u"code"_s] = QString::number(static_cast<quint32>(number), 16).toUpper();
    }
}

QJsonObject EntryObject(const JobRemark& remark)
{
    QJsonObject object {{u"text"_s, JsonText(remark.text)}};
    if (!remark.path.empty()) {
        InsertBytes(object, u"path"_s, remark.path);
    }
    if (!remark.fileSystem.empty()) {
        object[u"fileSystem"_s] = JsonText(remark.fileSystem);
    }
    if (!remark.recorded.empty()) {
        InsertBytes(object, u"recorded"_s, remark.recorded);
    }
    if (!remark.target.empty()) {
        InsertBytes(object, u"target"_s, remark.target);
    }
    return object;
}

} // namespace velmora::terminal
