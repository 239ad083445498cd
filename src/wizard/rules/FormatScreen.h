// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/DiscCapacities.h"
#include "shell/DiscChoices.h"
#include "writing/BurnOptions.h"

#include <QString>

namespace velmora::wizard {

/// What a format button makes: data discs (CorvaneButton2), audio discs (CorvaneButtonAudio) or
/// video discs (CorvaneButtonVideo). The last two kinds are never visible.
enum class FormatKind : qint8 { Data, Audio, Video };

/// One format button.
struct FormatButton {
    FormatKind kind = FormatKind::Data;
    qint16 index = 0;
};

/// The button of a format of data discs.
constexpr FormatButton ButtonOf(shell::DiscFormat format)
{
    return {FormatKind::Data, static_cast<qint16>(format)};
}

/// What the choice of a disc format shows: the format buttons and the options page.
class FormatScreen {
public:
    FormatScreen() = default;
    FormatScreen(const FormatScreen&) = delete;
    FormatScreen& operator=(const FormatScreen&) = delete;
    virtual ~FormatScreen() = default;

    /// Shows whether the recorder can write the format of a button. The button stays enabled: its
    /// colour tells (BackColor 0xC06040 and 0x808080, in the order blue, green, red).
    virtual void SetPossible(FormatButton button, bool isPossible) = 0;
    /// A click on an impossible format is ignored.
    virtual bool IsPossible(shell::DiscFormat format) const = 0;

    virtual void EnableSize(compilation::DiscSize size, bool isEnabled) = 0;
    /// Selects a size, without running its click.
    virtual void SelectSize(compilation::DiscSize size) = 0;

    /// Shows or hides the sizes of a format (ReyFrame1).
    virtual void PlaceSizes(shell::DiscFormat format, bool isOnScreen) = 0;
    /// The title of the options page, which names the format (Label3).
    virtual void ShowTitle(const QString& caption) = 0;
    /// The disc in the drive, and its free space (Label5).
    virtual void DescribeDisc(const QString& caption) = 0;

    /// Enables or disables the data mode (Combo2(0)).
    virtual void EnableDataMode(bool isEnabled) = 0;
    virtual void SelectDataMode(writing::DataMode mode) = 0;
    /// Enables or disables the file system (Combo2(1)).
    virtual void EnableFileSystem(bool isEnabled) = 0;
    virtual void SelectFileSystem(writing::FileSystemOption fileSystem) = 0;

    // The speeds, from the one that comes first (Combo2(2)).
    virtual void ClearSpeeds() = 0;
    virtual void OfferSpeed(const QString& speed) = 0;
    virtual void SelectFirstSpeed() = 0;

    /// Enables one of the three ways to end a disc (MultiSession).
    virtual void EnableSession(writing::SessionOption option, bool isEnabled) = 0;
    /// Selects one; the other two are no longer selected.
    virtual void SelectSession(writing::SessionOption option) = 0;
};

} // namespace velmora::wizard
