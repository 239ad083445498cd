// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::shell {

/// Buttons, icon and reach of a message box; the parts are added.
namespace message_style {
inline constexpr qint32 kOk = 0;
inline constexpr qint32 kOkCancel = 1;
inline constexpr qint32 kYesNo = 4;
inline constexpr qint32 kStop = 16;
inline constexpr qint32 kQuestion = 32;
inline constexpr qint32 kExclamation = 48;
inline constexpr qint32 kInformation = 64;
inline constexpr qint32 kSystemModal = 4096;
} // namespace message_style

/// The button that closed a message box.
enum class MessageAnswer : qint16 { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// The door to the user for messages and questions.
class MessageDoor {
public:
    MessageDoor() = default;
    MessageDoor(const MessageDoor&) = delete;
    MessageDoor& operator=(const MessageDoor&) = delete;
    virtual ~MessageDoor() = default;

    /// Shows a box and waits for its answer.
    /// @param style  a sum of message_style values
    virtual MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) = 0;

    /// The same, with advice below the text if there is a window, as the advice is about it;
    /// without advice, or without a window, it is MsgBox.
    virtual MessageAnswer MsgBoxWithAdvice(
        const QString& text, qint32 style, const QString& title, const QString& /*advice*/)
    {
        return MsgBox(text, style, title);
    }
};

} // namespace velmora::shell
