// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/BurnOptionsView.h"

#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/ListPage.h"
#include "wizard/pages/OptionsPage.h"

#include <QComboBox>
#include <QRadioButton>

namespace velmora::wizard {

BurnOptionsView::BurnOptionsView(FrmMain& window)
    : window_(window)
{
}

qint16 BurnOptionsView::Combo1ListIndex() const { return window_.Formats().SelectedRecorder(); }

QString BurnOptionsView::Combo2(qint16 index) const
{
    return window_.Options().Combo2(index).currentText();
}

qint16 BurnOptionsView::Combo2ListIndex(qint16 index) const
{
    return static_cast<qint16>(window_.Options().Combo2(index).currentIndex());
}

qint16 BurnOptionsView::Combo2ListCount(qint16 index) const
{
    return static_cast<qint16>(window_.Options().Combo2(index).count());
}

bool BurnOptionsView::MultiSession(qint16 index) const
{
    return window_.Options().MultiSession(index).isChecked();
}

QString BurnOptionsView::DiscName() const { return window_.List().DiscName(); }

void BurnOptionsView::SetDiscName(const QString& name) { window_.List().SetDiscName(name); }

QString BurnOptionsView::RepTempTxt() const { return window_.Configuration().TemporaryDirectory(); }

} // namespace velmora::wizard
