// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"

#include <QString>
#include <QtGlobal>

#include <functional>

namespace burn {
struct burn_drive;
} // namespace burn

namespace velmora::drives {

class DeviceHandle;

/// Asks a drive about its disc where libburn gave no answer. The library drops the reason why a
/// drive refused its own queries, so that a failing drive would look like an unusable disc. A
/// defect of an erasable disc is no failure here: it is the reason for erasing it.
///
/// Errors of all of them: those of DeviceHandle::Ask.
class DiscQuestions {
public:
    /// @param drive  grabbed
    /// @param disc  the one in it, as far as known; must outlive the object
    DiscQuestions(burn::burn_drive* drive, const drive::DiscInfo& disc);

    /// For a disc that the library calls unsuitable: raises what keeps the drive from reading it.
    void RequireKnown() const;
    /// For a disc that reports no address to write at: raises what keeps the drive from reporting
    /// it.
    void RequireNextTrackTold() const;
    /// For an overwritable disc that reports no size: raises what keeps the drive from reporting
    /// it.
    void RequireFormatsTold() const;
    /// The readable sectors of a closed disc; 0 if the drive doesn't report them. (The library
    /// takes them even from a refusal.)
    qint64 ReadableSectors() const;

private:
    void Put(const std::function<void(const DeviceHandle&)>& question) const;

    QString device_;
    const drive::DiscInfo& disc_;
};

} // namespace velmora::drives
