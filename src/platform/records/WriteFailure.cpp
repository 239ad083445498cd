// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/WriteFailure.h"

#include <utility>

namespace velmora::records {

using namespace Qt::StringLiterals;

QJsonObject ObjectOf(const WriteFailure& failure)
{
    return {{u"date"_s, failure.date.toUTC().toString(Qt::ISODate)},
        {u"recorder"_s, failure.recorder},
        {u"revision"_s, failure.revision},
        {u"disc"_s, failure.disc},
        {u"step"_s, failure.step},
        {u"error"_s, failure.number},
        {u"sense"_s, failure.sense},
        {u"sectors"_s, failure.sectors}};
}

std::optional<WriteFailure> FailureFrom(const QJsonObject& facts)
{
    WriteFailure failure {.date = QDateTime::fromString(facts[u"date"].toString(), Qt::ISODate),
        .recorder = facts[u"recorder"].toString(),
        .revision = facts[u"revision"].toString(),
        .disc = facts[u"disc"].toString(),
        .step = facts[u"step"].toString(),
        .number = facts[u"error"].toInt(),
        .sense = facts[u"sense"].toString(),
        .sectors = facts[u"sectors"].toInteger()};
    const bool isSound = failure.date.isValid() && failure.number != 0 && !failure.step.isEmpty();
    return isSound ? std::optional(std::move(failure)) : std::nullopt;
}

} // namespace velmora::records
