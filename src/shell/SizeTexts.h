// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>

#include <optional>

namespace velmora::shell {

// Sizes for display, in decimal units. No value means an unknown size.

/// Bytes as "999 Ko", "999 Mo" or "1,00 Go"; what would read "0 Ko" reads "1 Ko".
QString FormatSizeKo(std::optional<double> bytes, const QLocale& locale = QLocale::system());

/// Bytes as "999 Mo" or "1,00 Go".
QString FormatSizeMo(std::optional<double> bytes, const QLocale& locale = QLocale::system());

} // namespace velmora::shell
