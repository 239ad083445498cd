// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

namespace burn {
struct burn_drive;
} // namespace burn

namespace velmora::drives {

/// The progress of a drive that is done, in the units that it reports.
inline constexpr int kAllDone = 65536;

/// Told about 25 times a second how much of kAllDone is done; 0 if the drive doesn't tell.
using DoneReport = std::function<void(int done)>;

class StepWatch;

/// Whether a drive reads what it formats: hours for a large disc.
enum class Certification : std::uint8_t { Yes, No };

/// Must the disc be formatted before anything can be written to it? True for a new BD-RE or
/// DVD-RAM; a new DVD+RW is formatted by the drive while it is written.
bool NeedsFormat(burn::burn_drive* drive);

/// Was an overwritable disc never formatted?
bool IsUnformatted(burn::burn_drive* drive);

/// Formats an overwritable disc in its default size, even if it is formatted already. Doesn't wait
/// for a drive that fails meanwhile.
/// @param watch  of the step that this belongs to
/// Errors: 80AA0905, 80AA0907; what the drive says.
void FormatDisc(burn::burn_drive* drive,
    Certification certification,
    const DoneReport& report,
    StepWatch& watch);

/// Blanks a CD-RW or a sequential DVD-RW, all of it or only its start.
/// Errors: as FormatDisc.
void BlankDisc(burn::burn_drive* drive, bool full, const DoneReport& report, StepWatch& watch);

/// Writes zeros where file systems begin. Errors: what the drive says.
void WipeDisc(burn::burn_drive* drive, StepWatch& watch);

} // namespace velmora::drives
