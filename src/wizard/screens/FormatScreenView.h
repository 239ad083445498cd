// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/FormatScreen.h"

namespace velmora::wizard {

class FormatTile;
class FrmMain;

/// The format buttons and the options page of the window.
class FormatScreenView final : public FormatScreen {
public:
    explicit FormatScreenView(FrmMain& window);

    void Paint(FormatButton button, quint32 colour) override;
    quint32 BackColor(FormatButton button) const override;
    void EnableOption(OptionArray array, qint16 index, bool isEnabled) override;
    void SelectOption(OptionArray array, qint16 index) override;
    void PlaceReyFrame1(shell::DiscFormat format, bool isOnScreen) override;
    void SetLabel3(const QString& caption) override;
    void SetLabel5(const QString& caption) override;
    void EnableCombo2(OptionBox box, bool isEnabled) override;
    void SetCombo2ListIndex(OptionBox box, qint16 listIndex) override;
    void ClearCombo2(OptionBox box) override;
    void AddToCombo2(OptionBox box, const QString& item) override;
    void EnableMultiSession(writing::SessionOption option, bool isEnabled) override;
    void SelectMultiSession(writing::SessionOption option) override;

private:
    FormatTile& Tile(FormatButton button) const;

    FrmMain& window_;
};

} // namespace velmora::wizard
