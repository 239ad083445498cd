// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DesktopMessages.h"
#include "dialogs/DesktopPointer.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/WidgetApplication.h"

#include <QAbstractButton>
#include <QCursor>
#include <QMessageBox>

#include <gtest/gtest.h>

namespace velmora::dialogs {

using namespace Qt::StringLiterals;
using shell::MessageAnswer;
using shell::MousePointer;

namespace {

/// The answer of a box when the user presses a button, and the box's icon.
std::pair<MessageAnswer, QMessageBox::Icon> Press(qint32 style, const QString& caption)
{
    QMessageBox::Icon icon {};
    const test::ModalWindow user([&](QWidget& window) {
        icon = dynamic_cast<QMessageBox&>(window).icon();
        EXPECT_EQ(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint), style >= 4096);
        bool found = false;
        for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
            if (button->text() == caption) {
                found = true;
                button->click();
                break;
            }
        }
        EXPECT_TRUE(found) << caption.toStdString();
        if (!found) dynamic_cast<QMessageBox&>(window).done(0);
    });
    DesktopMessages messages;
    const MessageAnswer answer = messages.MsgBox(u"x"_s, style, u"Velmora"_s);
    return {answer, icon};
}

} // namespace

TEST(DesktopMessagesTest, TheStylesOfTheProgramHaveTheirButtonsAndIcons)
{
    const auto expect
        = [](qint32 style, const QString& caption, MessageAnswer answer, QMessageBox::Icon icon) {
              EXPECT_EQ(Press(style, caption), std::pair(answer, icon)) << style;
          };
    expect(0, u"&OK"_s, MessageAnswer::Ok, QMessageBox::NoIcon);
    expect(36, u"&Oui"_s, MessageAnswer::Yes, QMessageBox::Question);
    expect(36, u"&Non"_s, MessageAnswer::No, QMessageBox::Question);
    expect(48, u"&OK"_s, MessageAnswer::Ok, QMessageBox::Warning);
    expect(52, u"&Non"_s, MessageAnswer::No, QMessageBox::Warning);
    expect(64, u"&OK"_s, MessageAnswer::Ok, QMessageBox::Information);
    expect(65, u"&Annuler"_s, MessageAnswer::Cancel, QMessageBox::Information);
    expect(4112, u"&OK"_s, MessageAnswer::Ok, QMessageBox::Critical);
    expect(4160, u"&OK"_s, MessageAnswer::Ok, QMessageBox::Information);
}

TEST(DesktopPointerTest, TheHourglassIsABusyPointer)
{
    DesktopPointer pointer;
    pointer.SetMousePointer(MousePointer::Hourglass);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    pointer.SetMousePointer(MousePointer::Default);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(DesktopPointerTest, BehindTheArrowControlsHaveTheirOwnPointersAgain)
{
    DesktopPointer pointer;
    pointer.SetMousePointer(MousePointer::Hourglass);
    pointer.SetMousePointer(MousePointer::Arrow);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(DesktopMessagesTest, AdviceIsShownBelowTheText)
{
    QString advice;
    const test::ModalWindow user([&advice](QWidget& window) {
        advice = dynamic_cast<QMessageBox&>(window).informativeText();
        window.close();
    });
    EXPECT_EQ(DesktopMessages().MsgBoxWithAdvice(u"x"_s, 36, u"Velmora"_s, u"Que faire"_s),
        MessageAnswer::No);
    EXPECT_EQ(advice, u"Que faire"_s);
}

} // namespace velmora::dialogs
