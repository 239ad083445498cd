// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "runtime/Clock.h"

#include <optional>

namespace velmora::drive {

/// A drive in use, what it says about itself, and what was last found out about its disc.
class BoundDrive {
public:
    /// @param clock  tells how old the disc's facts are; must outlive the object
    /// Errors: those of Drive::Identify.
    BoundDrive(DriveRef drive, const runtime::Clock& clock);

    const DriveRef& Hardware() const { return drive_; }
    /// As they were when the object was made.
    const DriveFacts& Facts() const { return facts_; }

    /// Examines the disc. Errors: those of Drive::Examine.
    const DiscInfo& LookAnew();
    /// The disc as last examined, if that was less than two seconds ago; else examines it anew.
    const DiscInfo& Look();
    /// The disc may have changed: the next query examines it anew.
    void ForgetLook() { lookedAt_.reset(); }

private:
    DriveRef drive_;
    const runtime::Clock& clock_;
    DriveFacts facts_;
    DiscInfo look_;
    std::optional<double> lookedAt_; // seconds
};

} // namespace velmora::drive
