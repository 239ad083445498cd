// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "imapi/IStream.h"
#include "mastering/comparison/WrittenTrack.h"
#include "records/BurnRecord.h"
#include "records/WriteFailure.h"
#include "runtime/RuntimeError.h"

#include <QDateTime>

namespace velmora::mastering {

/// The record of a finished burn.
records::BurnRecord RecordOf(WrittenTrack& track,
    const imapi::IStream& source,
    const drive::DriveFacts& recorder,
    drive::IMAPI_MEDIA_PHYSICAL_TYPE disc,
    const QDateTime& now);

/// The record of a failed write.
/// @param step  that the drive was at, as far as it reported
records::WriteFailure FailureOf(const runtime::RuntimeError& failure,
    drive::WriteAction step,
    const drive::DriveFacts& recorder,
    drive::IMAPI_MEDIA_PHYSICAL_TYPE disc,
    const QDateTime& now);

} // namespace velmora::mastering
