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

using namespace Qt::StringLiterals;

BurnOptionsView::BurnOptionsView(FrmMain& window)
    : window_(window)
{
}

qint16 BurnOptionsView::RecorderPlace() const { return window_.Formats().SelectedRecorder(); }

writing::DataMode BurnOptionsView::Mode() const
{
    const QString text = window_.Options().Combo2(OptionBox::DataMode).currentText();
    return text == u"Mode 2 / XA"_s ? writing::DataMode::Mode2Xa : writing::DataMode::Mode1;
}

writing::FileSystemOption BurnOptionsView::FileSystem() const
{
    const QString text = window_.Options().Combo2(OptionBox::FileSystem).currentText();
    if (text == u"ISO 9660"_s) {
        return writing::FileSystemOption::Iso9660;
    }
    return text == u"Joliet"_s ? writing::FileSystemOption::Joliet : writing::FileSystemOption::Udf;
}

writing::SpeedSelection BurnOptionsView::Speed() const
{
    const QComboBox& speeds = window_.Options().Combo2(OptionBox::Speed);
    return {.text = speeds.currentText(),
        .listIndex = static_cast<qint16>(speeds.currentIndex()),
        .listCount = static_cast<qint16>(speeds.count())};
}

writing::SessionOption BurnOptionsView::Session() const
{
    using writing::SessionOption;
    for (const SessionOption option :
        {SessionOption::ContinueMultisession, SessionOption::CloseDisc}) {
        if (window_.Options().MultiSession(option).isChecked()) {
            return option;
        }
    }
    return SessionOption::StartMultisession;
}

QString BurnOptionsView::DiscName() const { return window_.List().DiscName(); }

void BurnOptionsView::SetDiscName(const QString& name) { window_.List().SetDiscName(name); }

QString BurnOptionsView::TemporaryDirectory() const
{
    return window_.Configuration().TemporaryDirectory();
}

} // namespace velmora::wizard
