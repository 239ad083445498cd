// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "recorder/RecorderState.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "shell/MessageDoor.h"
#include "shell/PointerDoor.h"

#include <optional>
#include <vector>

namespace velmora::recorder {

/// A write speed of the disc; both members are empty in the one element of a disc with one speed.
struct SpeedEntry {
    std::optional<quint32> Speed;   ///< sectors of 2048 bytes per second
    std::optional<qint16> Multiple; ///< of the single speed of the disc's family

    friend bool operator==(const SpeedEntry&, const SpeedEntry&) = default;
};

/// What a detection works with. All of it outlives the detection.
struct DetectionDoors {
    RecorderState& state;
    imapi::Mastering& mastering;
    runtime::Clock& clock;
    runtime::EventPump& pump;
    shell::PointerDoor& pointer;
    shell::MessageDoor& messages;
};

/// Answers what lies in a drive right now, and waits out a drive that isn't ready: up to half a
/// minute a question. It never raises, and shows nothing but the prompt for a disc. Events are
/// handled meanwhile, so the caller sees to it that no second detection begins.
///
/// @param UniqueId            RecorderId of the recorder's record
/// @param SpeedList           out: an element for each speed, the fastest first
/// @param PromptForMedia      opens the tray and asks for a disc first
/// @param FreeBytes           out: room on the disc; untouched for type 0; may be nullptr
/// @param FileSystemImported  out: the last session of a disc that isn't blank was imported;
///                            untouched for a blank disc and where the detection ends before
/// @param MediaBlank          out: untouched for type 0 and where the detection ends before
/// @param RetryRead           retries the reads of the speeds and of what comes after them
/// @return  the disc's name as MediaTypeName gives it, or why there is none; empty when the user
///          cancelled the prompt, and for a type without a name
QString DetectMedia(const DetectionDoors& doors,
    const QString& UniqueId,
    std::vector<SpeedEntry>& SpeedList,
    bool PromptForMedia,
    double* FreeBytes,
    bool& FileSystemImported,
    bool& MediaBlank,
    bool RetryRead);

} // namespace velmora::recorder
