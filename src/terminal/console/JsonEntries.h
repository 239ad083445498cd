// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/JobEvents.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <string>
#include <string_view>

namespace velmora::terminal {

/// A UTF-8 text as JSON has it.
QString JsonText(std::string_view text);

/// Gives an object a member with bytes of the machine: as text, with U+FFFD for what isn't UTF-8.
/// If that loses anything, a second member whose name ends in "Bytes" has the bytes in hexadecimal
/// digits.
void InsertBytes(QJsonObject& object, const QString& name, std::string_view bytes);

/// Gives an object the number of an error, and the code of those that have a published one.
void InsertErrorNumber(QJsonObject& object, qint32 number);

/// A remark's subject and text, without its kind.
QJsonObject EntryObject(const JobRemark& remark);

/// Remarks of one kind.
/// @param remarkOf  makes a JobRemark of an item
template <class Items, class RemarkOf>
QJsonArray EntryArray(const Items& items, const RemarkOf& remarkOf)
{
    QJsonArray entries;
    for (const auto& item : items) {
        entries.append(EntryObject(remarkOf(item)));
    }
    return entries;
}

} // namespace velmora::terminal
