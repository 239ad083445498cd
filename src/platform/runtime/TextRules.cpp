// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/TextRules.h"

namespace velmora::runtime {

QString RTrim(const QString& text)
{
    qsizetype length = text.size();
    while (length > 0 && text[length - 1] == u' ') {
        --length;
    }
    return text.first(length);
}

QString Trim(const QString& text)
{
    qsizetype start = 0;
    while (start < text.size() && text[start] == u' ') {
        ++start;
    }
    return RTrim(text.sliced(start));
}

QString RSet(const QString& text, qsizetype width)
{
    return text.rightJustified(width, u' ', true);
}

QStringList Split(const QString& text, QChar separator)
{
    return text.isEmpty() ? QStringList() : text.split(separator);
}

} // namespace velmora::runtime
