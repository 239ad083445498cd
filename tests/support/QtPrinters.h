// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <ostream>

QT_BEGIN_NAMESPACE

/// Lets a failed comparison show the text, its lone surrogates and control characters as \uXXXX.
inline void PrintTo(const QString& text, std::ostream* out)
{
    QString shown;
    for (const QChar c : text) {
        const bool plain = c.isPrint() && !c.isSurrogate();
        shown += plain ? QString(c) : QString::asprintf("\\u%04X", c.unicode());
    }
    *out << '"' << shown.toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* out)
{
    *out << '[';
    for (const QString& text : list) {
        PrintTo(text, out);
        *out << ' ';
    }
    *out << ']';
}

QT_END_NAMESPACE
