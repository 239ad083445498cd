// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QPalette>
#include <QWidget>

#include <gtest/gtest.h>

namespace velmora::test {

/// The folder in which whoever looks at the windows wants their pictures; empty for nobody.
inline QString PicturesFolder() { return qEnvironmentVariable("VELMORA_PICTURES"); }
inline bool WantsPictures() { return !PicturesFolder().isEmpty(); }

/// Shows a window and keeps its picture in light and in dark colours, as NAME.png and
/// NAME-dark.png.
inline void KeepPictures(QWidget& window, const QString& name)
{
    const QPalette light = QApplication::palette();
    window.show();
    for (const bool isDark : {false, true}) {
        if (isDark) {
            QApplication::setPalette(QPalette(QColor(0x38, 0x3C, 0x40)));
        }
        QApplication::processEvents();
        const QString suffix = QLatin1String(isDark ? "-dark.png" : ".png");
        EXPECT_TRUE(window.grab().save(PicturesFolder() + u'/' + name + suffix));
    }
    QApplication::setPalette(light);
}

} // namespace velmora::test
