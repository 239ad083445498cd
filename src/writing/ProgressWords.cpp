// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ProgressWords.h"

#include "drive/SectorSize.h"
#include "runtime/Formats.h"

#include <chrono>
#include <cmath>

namespace velmora::writing {

using namespace Qt::StringLiterals;

QString PhaseWords(RunPhase phase)
{
    switch (phase) {
    case RunPhase::Idle:
    case RunPhase::Working:
        break;
    case RunPhase::Preparing:
        return u"Préparation du graveur"_s;
    case RunPhase::Formatting:
        return u"Formatage du disque"_s;
    case RunPhase::Calibrating:
        return u"Réglage de la puissance du laser"_s;
    case RunPhase::Writing:
        return u"Gravure"_s;
    case RunPhase::Finalizing:
        return u"Finalisation du disque"_s;
    case RunPhase::Comparing:
        return u"Vérification du disque"_s;
    }
    return {};
}

bool IsWithoutEnd(RunPhase phase)
{
    return phase == RunPhase::Preparing || phase == RunPhase::Formatting
        || phase == RunPhase::Calibrating || phase == RunPhase::Finalizing;
}

std::optional<int> PercentOf(const RunFigures& figures)
{
    constexpr qint64 kHundred = 100;
    const bool isWriting = figures.phase == RunPhase::Writing;
    if ((!isWriting && figures.phase != RunPhase::Comparing) || figures.sectors <= 0) {
        return {};
    }
    const qint64 done = isWriting ? figures.writtenSectors : figures.comparedSectors;
    return static_cast<int>(done * kHundred / figures.sectors);
}

QString SpeedWords(double sectorsPerSecond, const QLocale& locale)
{
    constexpr double kMillion = 1e6;
    const double speed = sectorsPerSecond * static_cast<double>(drive::kSectorBytes) / kMillion;
    return locale.toString(speed, 'f', 1) + u"\u00A0Mo/s"_s;
}

QString ProgressLine(const RunFigures& figures, const QLocale& locale)
{
    QString line = PhaseWords(figures.phase);
    if (IsWithoutEnd(figures.phase)) {
        return line + u"…"_s;
    }
    if (figures.secondsLeft) {
        const std::chrono::seconds left(std::llround(*figures.secondsLeft));
        line += u", reste "_s + runtime::FormatDuration(left, u'\u00A0');
    }
    if (figures.sectorsPerSecond) {
        line += u", "_s + SpeedWords(*figures.sectorsPerSecond, locale);
    }
    return line;
}

} // namespace velmora::writing
