// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "mastering/base/MasteringContext.h"

namespace velmora::mastering {

/// The mastering interfaces over drives.
/// @param sources  where the drives come from, in the order of the list of recorders: the real ones
///                 before the virtual ones
/// @param clock    must outlive the mastering and every object that it makes
/// @param care  what the user wants for every write; without it every disc is compared, and
/// nothing is recorded. No interface has it: it is our own addition.
std::unique_ptr<imapi::Mastering> MasteringOf(
    DriveSources sources, runtime::Clock& clock, WriteCare care = {});

} // namespace velmora::mastering
