// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/Conversions.h"

#include "runtime/RuntimeError.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace velmora::runtime {

using namespace Qt::StringLiterals;

namespace {

/// Digits of a number in base 16 or 8, up to the first other character.
double ValueOfDigits(QStringView digits, unsigned base)
{
    quint64 value = 0;
    for (const QChar c : digits) {
        bool isDigit = false;
        const unsigned digit = QStringView(&c, 1).toUInt(&isDigit, static_cast<int>(base));
        if (!isDigit) {
            break;
        }
        value = value * base + digit;
        if (value > std::numeric_limits<quint32>::max()) {
            throw RuntimeError(error::kOverflow);
        }
    }
    if (value <= std::numeric_limits<quint16>::max()) {
        return static_cast<qint16>(value);
    }
    return static_cast<qint32>(value);
}

bool IsDigitAt(QStringView text, qsizetype at)
{
    return at < text.size() && text[at] >= u'0' && text[at] <= u'9';
}

bool IsSignAt(QStringView text, qsizetype at)
{
    return at < text.size() && (text[at] == u'+' || text[at] == u'-');
}

qsizetype SkipDigits(QStringView text, qsizetype at)
{
    while (IsDigitAt(text, at)) {
        ++at;
    }
    return at;
}

/// Where the optional exponent at `at` ends; `at` itself when there is none.
qsizetype SkipExponent(QStringView text, qsizetype at)
{
    if (at >= text.size() || !u"eEdD"_s.contains(text[at])) {
        return at;
    }
    const qsizetype digits = IsSignAt(text, at + 1) ? at + 2 : at + 1;
    return IsDigitAt(text, digits) ? SkipDigits(text, digits) : at;
}

template <class Integer> Integer ToInteger(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Integer>::min()
            && rounded <= std::numeric_limits<Integer>::max())) {
        throw RuntimeError(error::kOverflow);
    }
    return static_cast<Integer>(rounded);
}

} // namespace

qint16 ToInt16(double value) { return ToInteger<qint16>(value); }

qint32 ToInt32(double value) { return ToInteger<qint32>(value); }

qint32 MultiplyInt32(qint32 left, qint32 right)
{
    qint32 product = 0;
    if (__builtin_mul_overflow(left, right, &product)) {
        throw RuntimeError(error::kOverflow);
    }
    return product;
}

double Divide(double dividend, double divisor)
{
    if (divisor == 0) {
        throw RuntimeError(dividend == 0 ? error::kOverflow : error::kDivisionByZero);
    }
    return dividend / divisor;
}

double Int(double value) { return std::floor(value); }

double Fix(double value) { return std::trunc(value); }

double Val(QStringView text)
{
    QString dense;
    for (const QChar c : text) {
        if (c != u' ' && c != u'\t' && c != u'\n') {
            dense += c;
        }
    }
    if (dense.startsWith("&H"_L1, Qt::CaseInsensitive)) {
        return ValueOfDigits(QStringView(dense).sliced(2), 16);
    }
    if (dense.startsWith("&O"_L1, Qt::CaseInsensitive)) {
        return ValueOfDigits(QStringView(dense).sliced(2), 8);
    }

    const qsizetype start = IsSignAt(dense, 0) ? 1 : 0;
    qsizetype end = SkipDigits(dense, start);
    qsizetype digits = end - start;
    if (end < dense.size() && dense[end] == u'.') {
        const qsizetype fraction = end + 1;
        end = SkipDigits(dense, fraction);
        digits += end - fraction;
    }
    if (digits == 0) {
        return 0;
    }
    end = SkipExponent(dense, end);

    QByteArray number = dense.first(end).toLatin1().toLower();
    number.replace('d', 'e');
    double value = 0; // the result of an underflow
    const char* first = number.constData() + (number.startsWith('+') ? 1 : 0);
    const auto parsed = std::from_chars(first, number.constEnd(), value);
    if (parsed.ec == std::errc::result_out_of_range && !number.contains("e-")) {
        throw RuntimeError(error::kOverflow);
    }
    return value;
}

QString Str(double value)
{
    QString digits = QString::number(std::abs(value), 'g', 15).toUpper();
    if (digits.startsWith("0."_L1)) {
        digits.remove(0, 1);
    }
    return (value < 0 ? u"-"_s : u" "_s) + digits;
}

qint32 WrappedFileLength(qint64 bytes) { return static_cast<qint32>(bytes); }

double LargeIntToDouble(qint32 low, qint32 high)
{
    constexpr double kHalf = 4294967296.0;
    return static_cast<double>(static_cast<quint32>(high)) * kHalf + static_cast<quint32>(low);
}

} // namespace velmora::runtime
