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
    void PlaceReyFrame1(qint16 index, bool isOnScreen) override;
    void SetLabel3(const QString& caption) override;
    void SetLabel5(const QString& caption) override;
    void EnableCombo2(qint16 index, bool isEnabled) override;
    void SetCombo2ListIndex(qint16 index, qint16 listIndex) override;
    void ClearCombo2(qint16 index) override;
    void AddToCombo2(qint16 index, const QString& item) override;
    void EnableMultiSession(qint16 index, bool isEnabled) override;
    void SelectMultiSession(qint16 index) override;

private:
    FormatTile& Tile(FormatButton button) const;

    FrmMain& window_;
};

} // namespace velmora::wizard
