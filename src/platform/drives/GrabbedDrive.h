// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drives/DeviceHandle.h"

#include <QString>

#include <span>

namespace burn {
struct burn_drive;
struct burn_drive_info;
} // namespace burn

namespace velmora::drives {

/// For the many calls of the library that take flags.
inline constexpr int kNoFlags = 0;

/// A drive that is held exclusively, with its disc freshly examined. Only on the library's thread.
class GrabbedDrive {
public:
    /// @param patience  see WaitForDrive
    /// Errors: those of WaitForDrive; what the library says.
    GrabbedDrive(const QString& device, const Patience& patience);
    /// Releases the drive, whatever happened to it: the only way out after a failed task.
    ~GrabbedDrive();
    GrabbedDrive(const GrabbedDrive&) = delete;
    GrabbedDrive& operator=(const GrabbedDrive&) = delete;
    GrabbedDrive(GrabbedDrive&&) = delete;
    GrabbedDrive& operator=(GrabbedDrive&&) = delete;

    /// Examines the disc again. @return false if the drive has to be grabbed anew for that
    bool LookAgain();

    burn::burn_drive* Handle() const { return drive_; }

private:
    QString device_;
    burn::burn_drive_info* infos_ = nullptr;
    burn::burn_drive* drive_ = nullptr;
};

/// The disc in the drive, as it was when the drive was grabbed.
drive::DiscInfo LookAtDisc(burn::burn_drive* drive);

/// Reads whole sectors. Errors: C0AA0202, C0AAB157.
void ReadSectors(burn::burn_drive* drive, qint64 first, std::span<std::byte> out);

/// The profile of the disc, 0 = none.
int ProfileOf(burn::burn_drive* drive);

/// Can the burning library write discs of that profile?
bool LibraryWrites(int profile);
/// Can a disc of that profile be written at any place, at any time?
bool IsOverwritable(int profile);
/// Can it erase them?
bool LibraryErases(int profile);

} // namespace velmora::drives
