// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/RunNotice.h"

#include <QColor>

/// The colours of the window that aren't the desktop's.
namespace velmora::wizard::colour {

inline constexpr QColor kAccent {0x40, 0x60, 0xC0};
/// A format that the recorder can't write.
inline constexpr QColor kImpossible {0x80, 0x80, 0x80};
inline constexpr QColor kBand {0x40, 0x40, 0x40};
inline constexpr QColor kBandText {0xC0, 0xC0, 0xC0};
/// The accent on the dark band.
inline constexpr QColor kAccentOnBand {0x8F, 0xA6, 0xF0};
/// Past the capacity of a disc.
inline constexpr QColor kWarning {0xD9, 0x6A, 0x1A};

// The contents of a disc. They can be told apart on silver and on blue, and by lightness.
inline constexpr QColor kPlanned {0xF5, 0xC5, 0x42, 0xA0};
inline constexpr QColor kEarlier {0x5B, 0x60, 0x70};
inline constexpr QColor kWritten {0x22, 0xB8, 0xCF, 0xE0};
inline constexpr QColor kCompared {0x1F, 0x7A, 0x43, 0xE0};
/// Failures and damage.
inline constexpr QColor kFailure {0xE5, 0x39, 0x35};

/// How a run ended, for text on the desktop's own background.
inline QColor OfOutcome(Outcome outcome, bool isDark)
{
    switch (outcome) {
    case Outcome::Done:
        return isDark ? QColor(0x6F, 0xD0, 0x8C) : QColor(0x1F, 0x7A, 0x43);
    case Outcome::Doubtful:
    case Outcome::Refused:
        return isDark ? QColor(0xFF, 0xB0, 0x6A) : QColor(0xA8, 0x4A, 0x08);
    case Outcome::Failed:
        return isDark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB3, 0x26, 0x1E);
    case Outcome::None:
    case Outcome::Stopped:
        break;
    }
    return isDark ? QColor(0xC4, 0xCB, 0xD6) : QColor(0x4A, 0x54, 0x63);
}

} // namespace velmora::wizard::colour
