// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/DiscCapacities.h"
#include "shell/DiscChoices.h"
#include "writing/BurnOptions.h"

#include <QString>

namespace velmora::wizard {

/// What a format button makes: data discs (CorvaneButton2), audio discs (CorvaneButtonAudio) or
/// video discs (CorvaneButtonVideo). The last two kinds are never seen.
enum class FormatKind : qint8 { Data, Audio, Video };

/// One format button.
struct FormatButton {
    FormatKind kind = FormatKind::Data;
    qint16 index = 0;
};

/// The boxes of the options page: the members of Combo2, in their order.
enum class OptionBox : qint8 { DataMode, FileSystem, Speed };

/// Colours of the format buttons, in the order blue, green, red.
namespace format_colour {
inline constexpr quint32 kPossible = 0xC06040;
inline constexpr quint32 kImpossible = 0x808080; ///< a button of this colour ignores its click
} // namespace format_colour

/// What the choice of a disc format shows: the format buttons and the options page.
class FormatScreen {
public:
    FormatScreen() = default;
    FormatScreen(const FormatScreen&) = delete;
    FormatScreen& operator=(const FormatScreen&) = delete;
    virtual ~FormatScreen() = default;

    /// Gives a format button both of its colours.
    virtual void Paint(FormatButton button, quint32 colour) = 0;
    virtual quint32 BackColor(FormatButton button) const = 0;

    virtual void EnableSize(compilation::DiscSize size, bool isEnabled) = 0;
    /// Selects a size; its click doesn't run.
    virtual void SelectSize(compilation::DiscSize size) = 0;

    /// Brings the sizes of a format on screen or takes them away (ReyFrame1).
    virtual void PlaceSizes(shell::DiscFormat format, bool isOnScreen) = 0;
    /// The title of the options page, which names the format (Label3).
    virtual void ShowTitle(const QString& caption) = 0;
    /// What the disc in the drive is, and its room (Label5).
    virtual void DescribeDisc(const QString& caption) = 0;

    virtual void EnableBox(OptionBox box, bool isEnabled) = 0;
    virtual void SelectItem(OptionBox box, qint16 index) = 0;
    virtual void ClearItems(OptionBox box) = 0;
    virtual void AddItem(OptionBox box, const QString& item) = 0;

    /// Enables one of the three ways to end a disc (MultiSession).
    virtual void EnableSession(writing::SessionOption option, bool isEnabled) = 0;
    /// Selects one; the other two are no longer selected.
    virtual void SelectSession(writing::SessionOption option) = 0;
};

} // namespace velmora::wizard
