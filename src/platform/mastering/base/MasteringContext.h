// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "mastering/base/ImageTimes.h"
#include "records/BurnRecord.h"
#include "records/WriteFailure.h"
#include "runtime/Clock.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace velmora::mastering {

using DriveSources = std::vector<std::shared_ptr<drive::DriveSource>>;

/// Should a disc be compared with what was written to it? Asked before each write.
using ComparisonWish = std::function<bool()>;

/// Stores the record of a burn.
/// @return why it can't, in a French sentence; nothing on success
using RecordKeeper = std::function<std::optional<QString>(const records::BurnRecord& record)>;

/// Stores how a write failed.
using FailureKeeper = std::function<void(const records::WriteFailure& failure)>;

/// What the user wants from every write besides the disc itself.
struct WriteCare {
    ComparisonWish comparesAfterWrite {}; ///< empty: always
    RecordKeeper keepRecord {};           ///< empty: nothing is recorded
    FailureKeeper keepFailure {};         ///< empty: failures aren't recorded
    ImageTimes imageTimes {};             ///< of every image
};

/// The disc in a drive, as far as an image needs to know it.
struct DiscFacts {
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type = drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    qint64 freeSectors = 0; ///< of 2048 bytes
};

/// State shared by the objects of the disc side; it lives as long as any of them.
struct MasteringContext {
    MasteringContext(DriveSources drives, runtime::Clock& time, WriteCare wishes)
        : sources(std::move(drives))
        , clock(time)
        , care(std::move(wishes))
    {
    }

    DriveSources sources;
    runtime::Clock& clock;
    WriteCare care;
    /// Every recorder seen so far, at the place where it was first listed.
    QStringList recorders {};
    /// What a data writer last saw in a drive since the recorders were last listed.
    std::optional<DiscFacts> lastQueriedDisc {};
};

} // namespace velmora::mastering
