// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace velmora::runtime {

/// The text without the blanks (only U+0020) at its end.
QString RTrim(const QString& text);

/// The text without the blanks (only U+0020) at both ends.
QString Trim(const QString& text);

/// The text right-aligned in a field of `width` characters; a longer text is cut to its first
/// `width`.
QString RSet(const QString& text, qsizetype width);

/// All pieces between the separators; "" gives no piece, a trailing separator an empty last one.
QStringList Split(const QString& text, QChar separator);

} // namespace velmora::runtime
