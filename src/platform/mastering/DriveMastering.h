// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "mastering/DriveSide.h"

namespace velmora::mastering {

/// The mastering interfaces over drives.
/// @param sources  where the drives come from, in the order of the list of recorders: the real ones
///                 before the virtual ones
/// @param clock    must outlive the mastering and every object that it makes
/// @param wish     what the person wants of the comparison after a write; empty: every disc is
///                 compared. No interface asks for it: it is the platform's own care.
std::unique_ptr<imapi::Mastering> MasteringOf(
    DriveSources sources, runtime::Clock& clock, ComparisonWish wish = {});

} // namespace velmora::mastering
