// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Pointer.h"

#include "tests/support/WidgetApplication.h"

#include <QCursor>

#include <gtest/gtest.h>

using namespace velmora;

TEST(PointerTest, TheLastOneHolds)
{
    desktop::SetMousePointer(Qt::WaitCursor);
    desktop::SetMousePointer(Qt::WaitCursor);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop::SetMousePointer(Qt::ArrowCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    desktop::SetMousePointer(std::nullopt);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    desktop::SetMousePointer(std::nullopt);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(PointerTest, NothingMovesOnWayland)
{
    EXPECT_EQ(desktop::ShapeFor(Qt::WaitCursor, QStringLiteral("wayland")), std::nullopt);
    EXPECT_EQ(desktop::ShapeFor(Qt::BusyCursor, QStringLiteral("wayland-egl")), std::nullopt);
    EXPECT_EQ(desktop::ShapeFor(Qt::ArrowCursor, QStringLiteral("wayland")), Qt::ArrowCursor);
    EXPECT_EQ(desktop::ShapeFor(Qt::WaitCursor, QStringLiteral("xcb")), Qt::WaitCursor);
}
