// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

namespace burn {
struct burn_drive;
} // namespace burn

namespace velmora::drives {

/// What a drive has done when it has done all, in the steps in which it tells.
inline constexpr int kAllDone = 65536;

/// Hears about 25 times a second how much of kAllDone is done; 0 where the drive doesn't tell.
using DoneReport = std::function<void(int done)>;

class StepWatch;

/// Whether a drive reads what it formats: hours for a large disc.
enum class Certification : std::uint8_t { Yes, No };

/// Has the disc to be formatted before anything can be written to it? So it is with a new BD-RE or
/// DVD-RAM; a new DVD+RW is formatted by the drive as it is written.
bool NeedsFormat(burn::burn_drive* drive);

/// Was an overwritable disc never formatted?
bool IsUnformatted(burn::burn_drive* drive);

/// Formats an overwritable disc in the size that it has by default, although it may be formatted.
/// A drive that fails meanwhile is not waited for.
/// @param watch  of the step that this belongs to
/// Errors: 80AA0905, 80AA0907; what the drive says.
void FormatDisc(burn::burn_drive* drive,
    Certification certification,
    const DoneReport& report,
    StepWatch& watch);

/// Makes a CD-RW or a sequential DVD-RW blank, the whole of it or its start only.
/// Errors: as FormatDisc.
void BlankDisc(burn::burn_drive* drive, bool full, const DoneReport& report, StepWatch& watch);

/// Writes zeros where file systems begin. Errors: what the drive says.
void WipeDisc(burn::burn_drive* drive, StepWatch& watch);

} // namespace velmora::drives
