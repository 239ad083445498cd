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

    qint16 Combo1ListIndex() const override;
    QString Combo2(qint16 index) const override;
    qint16 Combo2ListIndex(qint16 index) const override;
    qint16 Combo2ListCount(qint16 index) const override;
    bool MultiSession(qint16 index) const override;
    QString DiscName() const override;
    void SetDiscName(const QString& name) override;
    QString RepTempTxt() const override;

private:
    FrmMain& window_;
};

} // namespace velmora::wizard
