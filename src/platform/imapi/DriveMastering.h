// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/DriveSide.h"
#include "imapi/Mastering.h"

namespace velmora::imapi {

/// The mastering interfaces over drives.
/// @param sources  where the drives come from, in the order of the list of recorders: the real ones
///                 before the virtual ones
/// @param clock    must outlive the mastering and every object that it makes
std::unique_ptr<Mastering> MasteringOf(DriveSources sources, const runtime::Clock& clock);

} // namespace velmora::imapi
