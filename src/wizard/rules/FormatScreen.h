// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

    /// @param index  0 Blu-ray, 1 DVD, 2 CD, 3 the disc in the drive
    virtual void PlaceReyFrame1(qint16 index, bool isOnScreen) = 0;
    virtual void SetLabel3(const QString& caption) = 0;
    virtual void SetLabel5(const QString& caption) = 0;

    /// @param index  0 data mode, 1 file system, 2 speed
    virtual void EnableCombo2(qint16 index, bool isEnabled) = 0;
    virtual void SetCombo2ListIndex(qint16 index, qint16 listIndex) = 0;
    virtual void ClearCombo2(qint16 index) = 0;
    virtual void AddToCombo2(qint16 index, const QString& item) = 0;

    virtual void EnableMultiSession(qint16 index, bool isEnabled) = 0;
    /// Selects a member; the other two are no longer selected.
    virtual void SelectMultiSession(qint16 index) = 0;
};

} // namespace velmora::wizard
