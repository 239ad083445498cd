// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

// How far a write is, as the program that writes tells its stop companion over a link of its own:
// the text of that link is a percentage, or "-" for a step of which nobody knows how long it takes,
// a blank, and a French line for the eye.
namespace velmora::companion {

/// How far a write is.
struct Progress {
    std::optional<int> percent {}; ///< 0 to 100; none: the step has no end that is known
    QString words {};              ///< one line

    bool operator==(const Progress&) const = default;
};

namespace words {

inline QString ProgressService() { return QStringLiteral("StopButton|Progress"); }
inline QString ProgressItem() { return QStringLiteral("Avancement"); }

} // namespace words

inline QString TextOf(const Progress& progress)
{
    const QString percent
        = progress.percent ? QString::number(*progress.percent) : QStringLiteral("-");
    return percent + QChar(u' ') + progress.words;
}

/// A text that isn't one of TextOf is taken for the words of a step without an end.
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
