// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/BurnOptionsView.h"

#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/ListPage.h"
#include "wizard/pages/OptionsPage.h"

namespace velmora::wizard {

BurnOptionsView::BurnOptionsView(FrmMain& window)
    : window_(window)
{
}

qint16 BurnOptionsView::RecorderPlace() const { return window_.Formats().SelectedRecorder(); }

writing::DataMode BurnOptionsView::Mode() const { return window_.Options().DataMode(); }

writing::FileSystemOption BurnOptionsView::FileSystem() const
{
    return window_.Options().FileSystem();
}

writing::SpeedSelection BurnOptionsView::Speed() const { return window_.Options().Speed(); }

writing::SessionOption BurnOptionsView::Session() const { return window_.Options().Session(); }

QString BurnOptionsView::DiscName() const { return window_.List().DiscName(); }

void BurnOptionsView::SetDiscName(const QString& name) { window_.List().SetDiscName(name); }

text::ProgramPath BurnOptionsView::TemporaryDirectory() const
{
    return window_.Configuration().TemporaryDirectory();
}

} // namespace velmora::wizard
