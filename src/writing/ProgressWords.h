// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writing/RunFigures.h"

#include <QLocale>
#include <QString>

#include <optional>

namespace velmora::writing {

/// What happens to the disc in a phase, French; empty if nothing does.
QString PhaseWords(RunPhase phase);

/// Whether the phase has an unknown length.
bool IsWithoutEnd(RunPhase phase);

/// Percent of the phase, rounded down; none for a phase of unknown length.
std::optional<int> PercentOf(const RunFigures& figures);

/// "12,3 Mo/s", with a no-break space.
/// @param sectorsPerSecond  of 2048 bytes
QString SpeedWords(double sectorsPerSecond, const QLocale& locale = QLocale::system());

/// The phase in one line, with the time left and the speed as far as known.
QString ProgressLine(const RunFigures& figures, const QLocale& locale = QLocale::system());

} // namespace velmora::writing
