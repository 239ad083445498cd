// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <functional>

namespace velmora::desktop {

/// The mount points of the volumes that the user plugged in or mounted by hand.
QStringList MountedVolumes();

/// Where the desktop keeps its bookmarks. By default both places are the user's own.
struct PlacesContext {
    QString configFolder; ///< of GTK's bookmarks
    QString dataFolder;   ///< of KDE's places
    std::function<QStringList()> volumes = MountedVolumes;

    static PlacesContext OfUser();
};

/// Native paths of the bookmarked folders, then of the mounted volumes, each once. Those that don't
/// exist, are hidden or lie on another machine are left out.
QStringList Places(const PlacesContext& context = PlacesContext::OfUser());

} // namespace velmora::desktop
