// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <functional>

namespace velmora::desktop {

/// The mount points of the volumes that a person plugged in or mounted by hand.
QStringList MountedVolumes();

/// Where the desktop keeps the folders that a person goes to often. The two places are the user's
/// own at first.
struct PlacesContext {
    QString configFolder; ///< of GTK's bookmarks
    QString dataFolder;   ///< of KDE's places
    std::function<QStringList()> volumes = MountedVolumes;

    static PlacesContext OfUser();
};

/// Native paths of the folders that are marked on the desktop, then of the mounted volumes, each
/// once. What isn't there, is hidden or lies on another machine is no place.
QStringList Places(const PlacesContext& context = PlacesContext::OfUser());

} // namespace velmora::desktop
