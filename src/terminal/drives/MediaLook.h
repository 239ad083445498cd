// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Data.h"
#include "runtime/Clock.h"
#include "terminal/console/TerminalScreen.h"

#include <QList>

#include <functional>

namespace velmora::terminal {

/// What is in a drive.
struct MediaLook {
    bool hasDisc = false;
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type = drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    qint32 status = 0;         ///< bits of media_state
    bool isRecordable = false; ///< a kind of disc that this drive records
    bool isBlank = false;      ///< nothing that matters is recorded
    qint64 totalSectors = 0;   ///< of 2048 bytes
    qint64 freeSectors = 0;    ///< that a write can still fill
    QList<quint32> speeds;     ///< sectors per second, the fastest first; empty if not recordable
    QList<drive::SessionFacts> sessions;
};

/// Examines the disc in a bound recorder. Waits half a minute at most for a drive that is still
/// getting ready.
/// @param stopRequested  ends that wait, with the drive's failure; polled every second
/// Errors: those of every access to a drive.
MediaLook LookAtMedia(imapi::IDiscFormat2Data& writer,
    const imapi::RecorderRef& recorder,
    runtime::Clock& clock,
    TerminalScreen& screen,
    const std::function<bool()>& stopRequested = {});

} // namespace velmora::terminal
