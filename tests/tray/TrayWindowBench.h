// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/FakeClock.h"
#include "tests/support/FindChild.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/TemporaryFolder.h"
#include "tray/SampleDisc.h"
#include "tray/TrayWindow.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>

#include <gtest/gtest.h>

#include <functional>

namespace velmora::tray {

using namespace Qt::StringLiterals;

/// The window of the virtual recorders, over a folder of its own, and what a user does with it.
class TrayWindowBench : public testing::Test {
protected:
    template <class Child> static Child& Find(TrayWindow& window, const char* name)
    {
        return test::FindChild<Child>(window, name);
    }
    static QString TextOf(TrayWindow& window, const char* name)
    {
        return Find<QLabel>(window, name).text();
    }
    static void Click(QWidget& window, const char* name)
    {
        test::FindChild<QAbstractButton>(window, name).click();
    }
    /// Clicks a button, and does what a user does in the dialog that it opens.
    static void ClickAndAnswer(
        TrayWindow& window, const char* name, const std::function<void(QWidget&)>& person)
    {
        test::ModalWindow dialog(person);
        Click(window, name);
        EXPECT_TRUE(dialog.WasThere()) << name;
    }
    static void Choose(QWidget& dialog, const char* name, const QString& text)
    {
        auto& box = test::FindChild<QComboBox>(dialog, name);
        ASSERT_GE(box.findText(text), 0) << text.toStdString();
        box.setCurrentIndex(box.findText(text));
    }
    static bool IsEnabled(QWidget& window, const char* name)
    {
        return test::FindChild<QWidget>(window, name).isEnabled();
    }
    static void InsertMedium(TrayWindow& window, const QString& name)
    {
        ClickAndAnswer(window, "insertButton", [&](QWidget& dialog) {
            Choose(dialog, "mediumBox", name);
            Click(dialog, "putInButton");
        });
    }
    /// Handles events until the disc's label begins with a text, for five seconds at most.
    static bool AwaitDisc(TrayWindow& window, QStringView text)
    {
        QElapsedTimer waited;
        waited.start();
        while (!TextOf(window, "discLabel").startsWith(text) && waited.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        }
        return TextOf(window, "discLabel").startsWith(text);
    }

    test::TemporaryFolder folder;
    test::FakePump pump;
    test::FakeClock clock {pump, QDateTime::fromMSecsSinceEpoch(1'700'000'000'000)};
    virtualdrive::Recorders recorders {folder.Path().string() + "/recorders", SampleImage};
};

} // namespace velmora::tray
