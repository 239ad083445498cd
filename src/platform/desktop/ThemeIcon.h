// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QStringList>
#include <QStyle>

namespace velmora::desktop {

/// The first of these icons that the desktop's theme has; the style's own if it has none.
QIcon ThemeIcon(const QStringList& names, QStyle::StandardPixmap otherwise);

/// The icon of a folder.
QIcon FolderIcon();

} // namespace velmora::desktop
