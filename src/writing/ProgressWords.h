// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writing/RunFigures.h"

#include <QLocale>
#include <QString>

#include <optional>

namespace velmora::writing {

/// What happens to the disc in a phase, French; empty while nothing does.
QString PhaseWords(RunPhase phase);

/// A phase of which nobody knows how long it takes.
bool IsWithoutEnd(RunPhase phase);

/// Percent of the phase, rounded down; none for a phase without an end.
std::optional<int> PercentOf(const RunFigures& figures);

/// The phase in one line, with the time left and the speed as far as they are known.
QString ProgressLine(const RunFigures& figures, const QLocale& locale = QLocale::system());

} // namespace velmora::writing
