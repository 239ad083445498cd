// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>

#include <chrono>

class QDateTime;

namespace velmora::runtime {

/// The mask "####...#": a whole number in plain digits, rounded half away from zero; 0 gives "".
QString FormatWhole(double value);

/// The masks "0.00" and "####...0.00": the value is first taken with 15 significant digits, then
/// rounded half away from zero. The decimal separator is the locale's; digits aren't grouped.
QString FormatTwoDecimals(double value, const QLocale& locale = QLocale::system());

/// A ratio in percent with two decimals, directly followed by "%", as in "12,34%".
QString FormatPercent(double ratio, const QLocale& locale = QLocale::system());

/// A span of time in whole seconds: "42 s", "3 min 05 s", "1 h 02 min".
/// @param blank  between a number and its unit; the one between two units is ordinary
QString FormatDuration(std::chrono::seconds duration, QChar blank);

/// A moment as "yyyymmdd-hhmmss", 24-hour clock.
QString DateStamp(const QDateTime& moment);

} // namespace velmora::runtime
