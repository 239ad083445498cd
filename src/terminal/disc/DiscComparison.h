// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/EventPump.h"
#include "terminal/console/ProgressLine.h"
#include "terminal/disc/WriteWitness.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>

namespace velmora::terminal {

enum class ComparisonEnd : std::uint8_t {
    Same,       ///< every sector of the recording was read, and all of them are as written
    Different,  ///< the disc gives other bytes
    Unreadable, ///< the disc gives no bytes
    Stopped,    ///< on request
};

/// What came out of reading a disc back. Sectors are of 2048 bytes, counted from the start of the
/// disc.
struct Comparison {
    ComparisonEnd end = ComparisonEnd::Stopped;
    qint64 sameSectors = 0; ///< from the recording's start on, known to be as written
    qint64 firstSector = 0; ///< of the stretch that is different or unreadable...
    qint64 lastSector = 0;  ///< ...and its last one
    QString failure {};     ///< why it is unreadable
    QByteArray digest {};   ///< SHA-256 of all that was read
};

struct ComparisonContext {
    ProgressLine& progress;
    runtime::EventPump& pump;
    std::function<bool()> stopRequested; ///< asked a few times a second
};

/// Reads a recording back from the disc in its drive, once, and compares it with the digests that
/// were made while it was written. Ends at the first piece that differs.
/// Errors: those of Drive::Lock.
Comparison CompareWithDisc(const WitnessedRecording& recording, const ComparisonContext& context);

} // namespace velmora::terminal
