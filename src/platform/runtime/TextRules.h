// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace velmora::runtime {

/// The text without the blanks (U+0020 alone) at its end.
QString RTrim(const QString& text);

/// The text without the blanks (U+0020 alone) at both ends.
QString Trim(const QString& text);

/// The text right-aligned in a field of `width` characters; of a longer text the first `width`
/// stay.
QString RSet(const QString& text, qsizetype width);

/// All pieces between the separators; "" gives no piece, a separator at the end an empty last one.
QStringList Split(const QString& text, QChar separator);

} // namespace velmora::runtime
