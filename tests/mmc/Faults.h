// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/mmc/Disc.h"
#include "tests/mmc/Sense.h"

#include <chrono>
#include <cstdint>

namespace velmora::mmc {

/// What goes wrong, and where. An address of -1 means never.
struct Faults {
    std::int64_t writeFailsAt = -1; ///< the WRITE that holds this sector ends with writeSense
    Sense writeSense {3, 0x0C, 0x00};
    std::int64_t readFailsAt = -1; ///< 3/11/00
    std::int64_t slowReadsAt = -1; ///< 3/11/00, unless the drive was told to read at 1x
    std::int64_t altersAt = -1;    ///< a byte of this sector is written wrong, but reported as good
    std::int64_t swallowsAt = -1;  ///< this sector isn't written, but reported as good
    std::int64_t swapsAtRead = -1; ///< once: another disc of the same size is there at its READ
    std::int64_t unplugsAtRead = -1; ///< the drive is gone from the READ of this sector on
    std::int64_t trayOpensAt = -1;   ///< at the WRITE of this sector
    std::int64_t unplugsAt = -1;     ///< the drive is gone from the WRITE of this sector on
    std::int64_t timesOutAt = -1;    ///< once: the transport fails, and nothing is written
    int transportFailures = 0;       ///< this many commands are lost, whatever they are...
    int transportHolds = 0;          ///< ...after this many that are not...
    int transportStatus = 3;         ///< ...with this status of the host adapter
    std::int64_t hangsAt = -1;       ///< once: the WRITE lasts for hangMilliseconds
    std::int64_t hangsAtRead = -1;   ///< once: the READ lasts as long
    int hangMilliseconds = 0;        ///< of real time
    std::int64_t busyAt = -1;        ///< from this sector on "long write in progress"...
    int busyWrites = 0;              ///< ...this many times
    int readyAfter = 0;              ///< TEST UNIT READY answered by "becoming ready"
    int startPolls = 0;              ///< ...this many of them after each START UNIT
    int stopPolls = 0;               ///< ...and after each STOP UNIT
    int attentions = 0;              ///< this many commands are answered by "disc changed"
    int syncPolls = 1;               ///< TEST UNIT READY until SYNCHRONIZE CACHE is done
    int busyCloses = 0;              ///< this many CLOSE TRACK SESSION find it writing
    int closePolls = 1;              ///< ...until CLOSE TRACK SESSION is done
    int erasePolls = 3;              ///< ...until an erase or a format is done
    bool eraseTellsProgress = true;  ///< in the sense data
    int unplugsAfterErasePolls = -1; ///< the drive is gone while it erases
    bool eraseFails = false;         ///< BLANK and FORMAT UNIT end with 4/09/00
    bool brokenDown = false;         ///< all that touches the disc ends with 4/3E/02
    bool writeProtected = false;
    int refuses = -1; ///< the command of this operation code always ends with refusedSense
    Sense refusedSense {4, 0x44, 0x00};
    bool refusalsFillReply = false;         ///< ... and leaves bytes in the host's buffer
    SenseForm senseForm = SenseForm::Fixed; ///< of all sense data
    bool unplugged = false;
    bool denied = false;   ///< open gives EACCES
    bool mounted = false;  ///< an exclusive open gives EBUSY
    int keepsTrayShut = 0; ///< this many commands to open the tray end with trayShutSense
    Sense trayShutSense = kBecomingReady;
    bool trayStuck = false;    ///< the tray can't be moved by command
    bool ejectRefused = false; ///< another program keeps the tray locked
};

} // namespace velmora::mmc
