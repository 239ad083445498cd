// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/FormatScreen.h"

namespace velmora::wizard {

class FrmMain;

/// The format buttons and the options page of the window.
class FormatScreenView final : public FormatScreen {
public:
    explicit FormatScreenView(FrmMain& window);

    void SetPossible(FormatButton button, bool isPossible) override;
    bool IsPossible(shell::DiscFormat format) const override;
    void EnableSize(compilation::DiscSize size, bool isEnabled) override;
    void SelectSize(compilation::DiscSize size) override;
    void PlaceSizes(shell::DiscFormat format, bool isOnScreen) override;
    void ShowTitle(const QString& caption) override;
    void DescribeDisc(const QString& caption) override;
    void EnableDataMode(bool isEnabled) override;
    void SelectDataMode(writing::DataMode mode) override;
    void EnableFileSystem(bool isEnabled) override;
    void SelectFileSystem(writing::FileSystemOption fileSystem) override;
    void ClearSpeeds() override;
    void OfferSpeed(const QString& speed) override;
    void SelectFirstSpeed() override;
    void EnableSession(writing::SessionOption option, bool isEnabled) override;
    void SelectSession(writing::SessionOption option) override;

private:
    FrmMain& window_;
};

} // namespace velmora::wizard
