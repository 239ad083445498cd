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
    void EnableSize(compilation::DiscSize size, bool isEnabled) override;
    void SelectSize(compilation::DiscSize size) override;
    void PlaceSizes(shell::DiscFormat format, bool isOnScreen) override;
    void ShowTitle(const QString& caption) override;
    void DescribeDisc(const QString& caption) override;
    void EnableBox(OptionBox box, bool isEnabled) override;
    void SelectItem(OptionBox box, qint16 listIndex) override;
    void ClearItems(OptionBox box) override;
    void AddItem(OptionBox box, const QString& item) override;
    void EnableSession(writing::SessionOption option, bool isEnabled) override;
    void SelectSession(writing::SessionOption option) override;

private:
    FormatTile& Tile(FormatButton button) const;

    FrmMain& window_;
};

} // namespace velmora::wizard
