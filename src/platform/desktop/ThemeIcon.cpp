// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ThemeIcon.h"

#include <QApplication>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

QIcon ThemeIcon(const QStringList& names, QStyle::StandardPixmap otherwise)
{
    for (const QString& name : names) {
        // Every theme claims to have the icon without a name.
        if (!name.isEmpty() && QIcon::hasThemeIcon(name)) {
            return QIcon::fromTheme(name);
        }
    }
    return QApplication::style()->standardIcon(otherwise);
}

QIcon FolderIcon() { return ThemeIcon({u"folder"_s, u"inode-directory"_s}, QStyle::SP_DirIcon); }

} // namespace velmora::desktop
