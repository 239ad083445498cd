// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/BoundDrive.h"

#include <utility>

namespace velmora::drive {

BoundDrive::BoundDrive(DriveRef drive, const runtime::Clock& clock)
    : drive_(std::move(drive))
    , clock_(clock)
    , facts_(drive_->Identify())
{
}

const DiscInfo& BoundDrive::LookAnew()
{
    ForgetLook();
    look_ = drive_->Examine();
    lookedAt_ = clock_.Timer();
    return look_;
}

const DiscInfo& BoundDrive::Look()
{
    constexpr double kFreshSeconds = 2;
    const bool isFresh = lookedAt_ && clock_.Timer() - *lookedAt_ < kFreshSeconds;
    return isFresh ? look_ : LookAnew();
}

} // namespace velmora::drive
