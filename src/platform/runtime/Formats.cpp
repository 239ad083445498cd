// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/Formats.h"

#include <QDateTime>

#include <cmath>

namespace velmora::runtime {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSignificantDigits = 15;

/// The value times 10^places as a whole number in digits, rounded half up from its first 15
/// significant digits. The value isn't negative.
QString ScaledDigits(double value, int places)
{
    // "d.dddddddddddddde+xx": the exponent tells how many digits come before the point.
    const QString text = QString::number(value, 'e', kSignificantDigits - 1);
    const qsizetype mark = text.indexOf(u'e');
    QString digits = text.first(mark).remove(u'.');
    const qsizetype wanted = text.sliced(mark + 1).toInt() + 1 + places;
    if (wanted < 0) {
        return u"0"_s;
    }
    if (wanted >= digits.size()) {
        return digits + QString(wanted - digits.size(), u'0');
    }

    const bool roundUp = digits[wanted] >= u'5';
    digits.truncate(wanted);
    const quint64 number = digits.toULongLong() + (roundUp ? 1 : 0);
    return QString::number(number);
}

} // namespace

QString FormatWhole(double value)
{
    const double rounded = std::round(value);
    return rounded == 0 ? QString() : QString::number(rounded, 'f', 0);
}

QString FormatTwoDecimals(double value, const QLocale& locale)
{
    const QString hundredths = ScaledDigits(std::abs(value), 2).rightJustified(3, u'0');
    const bool isZero = hundredths == "000"_L1;
    const qsizetype whole = hundredths.size() - 2;
    return (value < 0 && !isZero ? u"-"_s : QString()) + hundredths.first(whole)
        + locale.decimalPoint() + hundredths.sliced(whole);
}

QString FormatPercent(double ratio, const QLocale& locale)
{
    return FormatTwoDecimals(ratio * 100, locale) + u'%';
}

QString FormatDuration(std::chrono::seconds duration, QChar blank)
{
    constexpr qint64 kMinute = 60;
    constexpr qint64 kHour = 3600;
    const qint64 seconds = duration.count();
    const auto inTwoDigits = [](qint64 number) { return u"%1"_s.arg(number, 2, 10, QChar(u'0')); };
    if (seconds < kMinute) {
        return QString::number(seconds) + blank + u's';
    }
    if (seconds < kHour) {
        return QString::number(seconds / kMinute) + blank + u"min "_s
            + inTwoDigits(seconds % kMinute) + blank + u's';
    }
    return QString::number(seconds / kHour) + blank + u"h "_s
        + inTwoDigits(seconds / kMinute % kMinute) + blank + u"min"_s;
}

QString DateStamp(const QDateTime& moment) { return moment.toString(u"yyyyMMdd-HHmmss"_s); }

} // namespace velmora::runtime
