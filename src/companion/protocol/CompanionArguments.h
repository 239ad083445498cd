// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/PathText.h"

#include <QRect>
#include <QString>
#include <QStringList>

#include <optional>

// Where the window of the program that writes stands, as it tells its stop companion on the command
// line: left, top, width and height on the desktop, as in "40,20,900x620".
namespace velmora::companion {

inline QString TextOf(const QRect& window)
{
    return QStringLiteral("%1,%2,%3x%4")
        .arg(window.left())
        .arg(window.top())
        .arg(window.width())
        .arg(window.height());
}

/// None for a text that TextOf didn't make.
inline std::optional<QRect> WindowPlaceOf(QString text)
{
    const QStringList parts = text.replace(QChar(u'x'), QChar(u',')).split(QChar(u','));
    QList<int> numbers;
    for (const QString& part : parts) {
        bool isNumber = false;
        numbers += part.toInt(&isNumber);
        if (!isNumber) {
            return std::nullopt;
        }
    }
    constexpr qsizetype kNumbers = 4;
    return numbers.size() == kNumbers
        ? std::optional(QRect(numbers[0], numbers[1], numbers[2], numbers[3]))
        : std::nullopt;
}

/// What the program that writes tells its stop companion on the command line.
struct CompanionArguments {
    text::NativePath meetingFolder {}; ///< where the two meet
    std::optional<QRect> window {};    ///< of the program that writes, with its frame

    bool operator==(const CompanionArguments&) const = default;
};

inline QStringList ToCommandLine(const CompanionArguments& arguments)
{
    QStringList words {text::ToQtPath(arguments.meetingFolder)};
    if (arguments.window) {
        words += TextOf(*arguments.window);
    }
    return words;
}

/// None for a command line that ToCommandLine didn't make.
/// @param words  without the program's name
inline std::optional<CompanionArguments> FromCommandLine(const QStringList& words)
{
    const std::optional<QRect> window = WindowPlaceOf(words.value(1));
    return words.size() == (window ? 2 : 1) ? std::optional(
               CompanionArguments {text::ToNativePath(text::FromQtPath(words.front())), window})
                                            : std::nullopt;
}

} // namespace velmora::companion
