// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writing/BurnOptions.h"

namespace velmora::wizard {

class FrmMain;

/// What is chosen on the window's pages, as a run reads it.
class BurnOptionsView final : public writing::BurnOptions {
public:
    explicit BurnOptionsView(FrmMain& window);

    qint16 RecorderPlace() const override;
    writing::DataMode Mode() const override;
    writing::FileSystemOption FileSystem() const override;
    writing::SpeedSelection Speed() const override;
    writing::SessionOption Session() const override;
    QString DiscName() const override;
    void SetDiscName(const QString& name) override;
    text::ProgramPath TemporaryDirectory() const override;

private:
    FrmMain& window_;
};

} // namespace velmora::wizard
