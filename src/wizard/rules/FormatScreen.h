// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiscChoices.h"
#include "writing/BurnOptions.h"

#include <QString>

namespace velmora::wizard {

/// The format buttons, by the names of their arrays.
enum class FormatArray : qint8 { CorvaneButton2, CorvaneButtonAudio, CorvaneButtonVideo };

/// One format button.
struct FormatButton {
    FormatArray array = FormatArray::CorvaneButton2;
    qint16 index = 0;
};

/// The option buttons inside the type frames, by the names of their arrays.
enum class OptionArray : qint8 { BDOptionButton1, DVDOptionButton1, CDOptionButton1 };

/// The boxes of the options page (Combo2).
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

    virtual void EnableOption(OptionArray array, qint16 index, bool isEnabled) = 0;
    /// Selects an option button; its click doesn't run.
    virtual void SelectOption(OptionArray array, qint16 index) = 0;

    virtual void PlaceReyFrame1(shell::DiscFormat format, bool isOnScreen) = 0;
    virtual void SetLabel3(const QString& caption) = 0;
    virtual void SetLabel5(const QString& caption) = 0;

    virtual void EnableCombo2(OptionBox box, bool isEnabled) = 0;
    virtual void SetCombo2ListIndex(OptionBox box, qint16 listIndex) = 0;
    virtual void ClearCombo2(OptionBox box) = 0;
    virtual void AddToCombo2(OptionBox box, const QString& item) = 0;

    virtual void EnableMultiSession(writing::SessionOption option, bool isEnabled) = 0;
    /// Selects a member; the other two are no longer selected.
    virtual void SelectMultiSession(writing::SessionOption option) = 0;
};

} // namespace velmora::wizard
