// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DesktopMessages.h"

#include "desktop/MessageBox.h"

namespace velmora::dialogs {

namespace styles = shell::message_style;
using desktop::BoxAnswer;
using desktop::BoxButtons;
using desktop::BoxIcon;
using shell::MessageAnswer;

namespace {

constexpr qint32 kButtonBits = 0xF;
constexpr qint32 kIconBits = 0xF0;

BoxButtons ButtonsOf(qint32 wanted)
{
    switch (wanted & kButtonBits) {
    case styles::kOkCancel:
        return BoxButtons::OkCancel;
    case styles::kYesNo:
        return BoxButtons::YesNo;
    default:
        return BoxButtons::Ok;
    }
}

BoxIcon IconOf(qint32 wanted)
{
    switch (wanted & kIconBits) {
    case styles::kStop:
        return BoxIcon::Stop;
    case styles::kQuestion:
        return BoxIcon::Question;
    case styles::kExclamation:
        return BoxIcon::Exclamation;
    case styles::kInformation:
        return BoxIcon::Information;
    default:
        return BoxIcon::None;
    }
}

} // namespace

MessageAnswer DesktopMessages::MsgBox(const QString& text, qint32 style, const QString& title)
{
    return MsgBoxWithAdvice(text, style, title, {});
}

MessageAnswer DesktopMessages::MsgBoxWithAdvice(
    const QString& text, qint32 style, const QString& title, const QString& advice)
{
    const bool staysOnTop = (style & styles::kSystemModal) != 0;
    const desktop::BoxLook look {ButtonsOf(style), IconOf(style), staysOnTop, advice};
    switch (desktop::ShowMessageBox(text, look, title)) {
    case BoxAnswer::Cancel:
        return MessageAnswer::Cancel;
    case BoxAnswer::Yes:
        return MessageAnswer::Yes;
    case BoxAnswer::No:
        return MessageAnswer::No;
    case BoxAnswer::Ok:
        break;
    }
    return MessageAnswer::Ok;
}

} // namespace velmora::dialogs
