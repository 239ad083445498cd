// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/DiscRules.h"
#include "virtual/DriveContext.h"

namespace velmora::virtualdrive {

/// Erases the disc in the drive. The caller holds the drive.
/// Errors: those of Drive::Erase.
void RunErase(DriveContext& drive, bool full, const drive::EraseReport& report);

} // namespace velmora::virtualdrive
