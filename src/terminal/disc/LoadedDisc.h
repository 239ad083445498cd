// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/disc/DiscContext.h"
#include "terminal/drives/MediaLook.h"

#include <QString>

#include <string>

namespace velmora::terminal {

/// Looks at the disc that lies in a recorder before a run begins. A stop ends the wait for a drive
/// that gets ready.
/// @param recorderId  unique id
/// Errors: those of every access to a drive.
MediaLook LookAtLoadedDisc(const DiscContext& context, const QString& recorderId);

/// The same; a disc that lies in the open tray is pulled in for it.
MediaLook PullInAndLook(const DiscContext& context, const QString& recorderId);

/// What stands against burning the disc that lies in a recorder, where nobody can change it for
/// another one: French, to follow "Erreur : ". Empty for a blank disc, and for an empty drive, of
/// which the run tells.
std::string ProblemOfLoadedDisc(const DiscContext& context, const QString& recorderId);

} // namespace velmora::terminal
