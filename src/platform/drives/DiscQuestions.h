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

/// Asks a drive about its disc where the library came to nothing. The library drops why a drive
/// refused its own questions, so that a failing drive would pass for a disc of no use. A defect of
/// a disc that can be erased is no failure here: it is what the disc is erased for.
///
/// Errors of all of them: those of DeviceHandle::Ask.
class DiscQuestions {
public:
    /// @param drive  grabbed
    /// @param disc   the one in it, as far as it is known; must outlive the object
    DiscQuestions(burn::burn_drive* drive, const drive::DiscInfo& disc);

    /// Of a disc that the library calls unsuitable: raises what keeps the drive from reading it.
    void RequireKnown() const;
    /// Of a disc that tells no address to write at: raises what keeps the drive from telling.
    void RequireNextTrackTold() const;
    /// Of an overwritable disc that tells no size: raises what keeps the drive from telling.
    void RequireFormatsTold() const;
    /// Sectors that can be read of a closed disc; 0 where the drive doesn't tell of this one. (The
    /// library reads them out of a refusal too.)
    qint64 ReadableSectors() const;

private:
    void Put(const std::function<void(const DeviceHandle&)>& question) const;

    QString device_;
    const drive::DiscInfo& disc_;
};

} // namespace velmora::drives
