// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"
#include "imapi/Mastering.h"
#include "recorder/RecorderState.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "runtime/RuntimeError.h"
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
struct DetectionContext {
    RecorderState& state;
    imapi::Mastering& mastering;
    runtime::Clock& clock;
    runtime::EventPump& pump;
    shell::PointerDoor& pointer;
    shell::MessageDoor& messages;
};

/// What a detection should find out.
struct DetectionRequest {
    QString UniqueId;            ///< RecorderId of the recorder's record
    bool PromptForMedia = false; ///< opens the tray and asks for a disc first
    bool FreeBytes = true;       ///< also get the free space, and the two facts after it
    bool RetryRead = true;       ///< retries the reads of the speeds and of what comes after them
};

/// The outcome of a detection.
enum class DetectionEnd : qint8 {
    Named,        ///< the text names the disc, or says why the recorder can't be queried
    NoUsableDisc, ///< the text says that the drive is empty, or why its disc can't be written
    NoText,       ///< the user cancelled the prompt, or the disc's type has no name
};

/// What a detection found. A member without a value wasn't read: what the caller knows about it
/// stays true.
struct DetectedMedia {
    DetectionEnd end = DetectionEnd::NoText;
    /// The disc's name as MediaTypeName gives it, or why there is none.
    QString text {};
    /// The disc's type; Unknown until the drive has told it.
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type = drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    /// The recorder's failure after all retries; none if it could be queried.
    std::optional<runtime::RuntimeError> failure {};
    /// An element for each speed, the fastest first.
    std::optional<std::vector<SpeedEntry>> SpeedList {};
    /// Room on the disc; none for type 0.
    std::optional<double> FreeBytes {};
    /// The last session of a disc that isn't blank was imported; none for a blank disc.
    std::optional<bool> FileSystemImported {};
    /// None for type 0.
    std::optional<bool> MediaBlank {};
};

/// Why a detection found no usable disc: that another program has the drive, and which, if so;
/// otherwise the caller's sentence.
QString WhyNoDisc(const DetectedMedia& disc, const QString& otherwise);

/// Tells what is in a drive right now, and waits for a drive that isn't ready: up to half a minute
/// for each query. It doesn't wait for a drive in use elsewhere. It never raises, and shows only
/// the prompt for a disc. Events are handled meanwhile, so the caller must prevent a second
/// detection.
DetectedMedia DetectMedia(const DetectionContext& context, const DetectionRequest& request);

} // namespace velmora::recorder
