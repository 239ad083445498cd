// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/DiscKinds.h"

#include <QString>
#include <QtGlobal>

#include <optional>

namespace velmora::writing {

/// What a run does, as far as the disc is concerned.
enum class RunPhase : qint8 {
    Idle,    ///< no run is going on
    Working, ///< files are read, discs examined, questions asked: nothing is reported about the
             ///< disc
    Preparing,
    Formatting,
    Calibrating,
    Writing,
    Finalizing,
    Comparing,
};

/// A run's progress with its disc. Sectors are 2048 bytes.
struct RunFigures {
    RunPhase phase = RunPhase::Idle;
    QString disc {}; ///< the name of its kind, empty until a disc was found
    drive::DiscFamily family = drive::DiscFamily::None; ///< of that disc
    qint64 freeSectors = 0;    ///< before the run, from the first sector of the recording on
    qint64 firstSector = 0;    ///< of the recording; what lies before it is of earlier ones
    qint64 sectors = 0;        ///< of the recording, 0 until they are known
    qint64 writtenSectors = 0; ///< as the drive tells them
    qint64 comparedSectors = 0;
    double phaseSeconds = 0; ///< since the phase began
    /// The phase's speed and the time left; none while unknown.
    std::optional<double> sectorsPerSecond {};
    std::optional<double> secondsLeft {};
};

} // namespace velmora::writing
