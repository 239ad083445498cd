// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/SizeTexts.h"

#include "runtime/Conversions.h"
#include "runtime/Formats.h"

namespace velmora::shell {

using namespace Qt::StringLiterals;

namespace {

constexpr double kThousand = 1e3;
constexpr double kMillion = 1e6;
constexpr double kMilliard = 1e9;

QString WholeUnits(double bytes, double unit)
{
    return QString::number(static_cast<qint64>(runtime::Int(bytes / unit)));
}

QString InMoOrGo(double bytes, const QLocale& locale)
{
    if (bytes < kMilliard) {
        return WholeUnits(bytes, kMillion) + u" Mo"_s;
    }
    return runtime::FormatTwoDecimals(bytes / kMilliard, locale) + u" Go"_s;
}

} // namespace

QString FormatSizeKo(std::optional<double> bytes, const QLocale& locale)
{
    if (!bytes) {
        return u"0 Ko"_s;
    }
    if (*bytes >= kMillion) {
        return InMoOrGo(*bytes, locale);
    }
    const QString text = WholeUnits(*bytes, kThousand) + u" Ko"_s;
    return text == "0 Ko"_L1 ? u"1 Ko"_s : text;
}

QString FormatSizeMo(std::optional<double> bytes, const QLocale& locale)
{
    return bytes ? InMoOrGo(*bytes, locale) : u"0 Mo"_s;
}

} // namespace velmora::shell
