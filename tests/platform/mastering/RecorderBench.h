// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/DriveMastering.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeDrive.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <memory>

#include <QTimeZone>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// The mastering interfaces over one drive that a test scripts.
class RecorderBench : public testing::Test {
protected:
    /// A recorder bound to the drive; the drive's log of calls is empty again.
    imapi::RecorderRef Bound()
    {
        imapi::RecorderRef recorder = mastering->CreateDiscRecorder();
        recorder->InitializeDiscRecorder(drive->facts.id);
        drive->Calls();
        return recorder;
    }

    std::optional<QString> Keep(const records::BurnRecord& record)
    {
        kept.push_back(record);
        return whyNotKept;
    }

    FakePump pump;
    FakeClock clock {pump, QDateTime({2026, 3, 9}, {7, 5, 4}, QTimeZone::utc())};
    std::shared_ptr<FakeDriveSource> source = std::make_shared<FakeDriveSource>();
    std::shared_ptr<FakeDrive> drive = source->Plug(u"sr0"_s);
    bool comparesAfterWrite = false; ///< most tests are about something else
    std::vector<records::BurnRecord> kept;
    std::vector<records::WriteFailure> failures;
    std::optional<QString> whyNotKept;
    std::unique_ptr<imapi::Mastering> mastering = mastering::MasteringOf({source},
        clock,
        {.comparesAfterWrite = [this] { return comparesAfterWrite; },
            .keepRecord = [this](const records::BurnRecord& record) { return Keep(record); },
            .keepFailure
            = [this](const records::WriteFailure& failure) { failures.push_back(failure); }});
};

/// Error numbers as the user sees them.
namespace seen {
inline constexpr qint32 kInvalidArgument = 5;
inline constexpr qint32 kAccessDenied = 70;
inline constexpr qint32 kPointer = -2147467261;
inline constexpr qint32 kFail = -2147467259;
} // namespace seen

} // namespace velmora::test
