// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/disc/DiscContext.h"
#include "terminal/drives/MediaLook.h"

#include <QString>

#include <string>

namespace velmora::terminal {

/// Examines the disc in a recorder before a run begins. A stop ends the wait for a drive that gets
/// ready.
/// @param recorderId  unique id
/// Errors: those of every access to a drive.
MediaLook LookAtLoadedDisc(const DiscContext& context, const QString& recorderId);

/// The same; a disc in an open tray is pulled in first.
MediaLook PullInAndLook(const DiscContext& context, const QString& recorderId);

/// Why the disc in a recorder can't be burned, when nobody can replace it: French, to follow
/// "Erreur : ". Empty for a blank disc, and for an empty drive, which the run reports.
std::string ProblemOfLoadedDisc(const DiscContext& context, const QString& recorderId);

} // namespace velmora::terminal
