// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

// The progress of a write, which the program that writes sends to its stop companion over a link of
// its own: the text of that link is a percentage, or "-" for a step of unknown length, a blank, and
// a French line for display.
namespace velmora::companion {

/// The progress of a write.
struct Progress {
    std::optional<int> percent {}; ///< 0 to 100; none: the step's length is unknown
    QString words {};              ///< one line

    bool operator==(const Progress&) const = default;
};

inline QString TextOf(const Progress& progress)
{
    const QString percent
        = progress.percent ? QString::number(*progress.percent) : QStringLiteral("-");
    return percent + QChar(u' ') + progress.words;
}

/// A text that TextOf didn't make is taken as the words of a step of unknown length.
inline Progress ProgressOf(const QString& text)
{
    const qsizetype blank = text.indexOf(QChar(u' '));
    bool isNumber = false;
    const int percent = text.left(blank).toInt(&isNumber);
    if (blank < 0) {
        return {.percent = {}, .words = text};
    }
    const bool isPercent = isNumber && percent >= 0 && percent <= 100;
    return {
        .percent = isPercent ? std::optional(percent) : std::nullopt, .words = text.mid(blank + 1)};
}

} // namespace velmora::companion
