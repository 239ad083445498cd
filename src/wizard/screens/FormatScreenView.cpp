// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/FormatScreenView.h"

#include "wizard/FrmMain.h"
#include "wizard/controls/FormatTile.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/OptionsPage.h"
#include "wizard/pages/SilentFormatPage.h"

#include <QComboBox>
#include <QRadioButton>

namespace velmora::wizard {

FormatScreenView::FormatScreenView(FrmMain& window)
    : window_(window)
{
}

FormatTile& FormatScreenView::Tile(FormatButton button) const
{
    switch (button.array) {
    case FormatArray::CorvaneButtonAudio:
        return window_.AudioFormats().Button(button.index);
    case FormatArray::CorvaneButtonVideo:
        return window_.VideoFormats().Button(button.index);
    case FormatArray::CorvaneButton2:
        break;
    }
    return window_.Formats().CorvaneButton2(static_cast<shell::DiscFormat>(button.index));
}

void FormatScreenView::Paint(FormatButton button, quint32 colour) { Tile(button).Paint(colour); }

quint32 FormatScreenView::BackColor(FormatButton button) const { return Tile(button).BackColor(); }

void FormatScreenView::EnableOption(OptionArray array, qint16 index, bool isEnabled)
{
    window_.Options().Options(array).at(static_cast<std::size_t>(index))->setEnabled(isEnabled);
}

void FormatScreenView::SelectOption(OptionArray array, qint16 index)
{
    window_.Options().Options(array).at(static_cast<std::size_t>(index))->setChecked(true);
}

void FormatScreenView::PlaceReyFrame1(shell::DiscFormat format, bool isOnScreen)
{
    window_.Options().PlaceReyFrame1(format, isOnScreen);
}

void FormatScreenView::SetLabel3(const QString& caption) { window_.Options().SetTitle(caption); }

void FormatScreenView::SetLabel5(const QString& caption)
{
    window_.Options().SetDetectedDisc(caption);
}

void FormatScreenView::EnableCombo2(OptionBox box, bool isEnabled)
{
    window_.Options().Combo2(box).setEnabled(isEnabled);
}

void FormatScreenView::SetCombo2ListIndex(OptionBox box, qint16 listIndex)
{
    window_.Options().Combo2(box).setCurrentIndex(listIndex);
}

void FormatScreenView::ClearCombo2(OptionBox box) { window_.Options().Combo2(box).clear(); }

void FormatScreenView::AddToCombo2(OptionBox box, const QString& item)
{
    window_.Options().Combo2(box).addItem(item);
}

void FormatScreenView::EnableMultiSession(writing::SessionOption option, bool isEnabled)
{
    window_.Options().MultiSession(option).setEnabled(isEnabled);
}

void FormatScreenView::SelectMultiSession(writing::SessionOption option)
{
    window_.Options().MultiSession(option).setChecked(true);
}

} // namespace velmora::wizard
