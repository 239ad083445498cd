// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/DialogParent.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace velmora::desktop {

QWidget* DialogParent()
{
    if (QWidget* open = QApplication::activeModalWidget()) {
        return open;
    }
    if (QWidget* active = QApplication::activeWindow()) {
        return active;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto seen = std::ranges::find_if(windows, [](const QWidget* window) {
        return window->isVisible() && window->windowType() == Qt::Window;
    });
    return seen == windows.end() ? nullptr : *seen;
}

} // namespace velmora::desktop
