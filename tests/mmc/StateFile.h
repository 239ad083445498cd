// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/mmc/Disc.h"
#include "tests/mmc/Faults.h"

#include <filesystem>

namespace velmora::mmc {

/// What persists between processes: the tray, the disc in it and the planned faults.
struct DriveState {
    bool trayOpen = false;
    Disc disc;
    Faults faults;
};

/// Reads a state file: lines of a word and its values, as in
/// profile 1B (a new disc, except for what follows)
///   capacity 2295104
///   track SESSION START SIZE WRITTEN CLOSED RESERVED DAMAGED
///   fault write-fails-at 5000
/// @return an empty drive if there is no such file
/// Errors: std::runtime_error for a line that can't be understood.
DriveState LoadState(const std::filesystem::path& file);

/// Writes it completely beside the old one, then replaces that.
void SaveState(const std::filesystem::path& file, const DriveState& state);

} // namespace velmora::mmc
