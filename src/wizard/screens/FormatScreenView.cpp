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
    switch (button.kind) {
    case FormatKind::Audio:
        return window_.AudioFormats().Button(button.index);
    case FormatKind::Video:
        return window_.VideoFormats().Button(button.index);
    case FormatKind::Data:
        break;
    }
    return window_.Formats().CorvaneButton2(static_cast<shell::DiscFormat>(button.index));
}

void FormatScreenView::Paint(FormatButton button, quint32 colour) { Tile(button).Paint(colour); }

quint32 FormatScreenView::BackColor(FormatButton button) const { return Tile(button).BackColor(); }

void FormatScreenView::EnableSize(compilation::DiscSize size, bool isEnabled)
{
    window_.Options().EnableSize(size, isEnabled);
}

void FormatScreenView::SelectSize(compilation::DiscSize size)
{
    window_.Options().SelectSize(size);
}

void FormatScreenView::PlaceSizes(shell::DiscFormat format, bool isOnScreen)
{
    window_.Options().PlaceSizes(format, isOnScreen);
}

void FormatScreenView::ShowTitle(const QString& caption) { window_.Options().SetTitle(caption); }

void FormatScreenView::DescribeDisc(const QString& caption)
{
    window_.Options().SetDetectedDisc(caption);
}

void FormatScreenView::EnableBox(OptionBox box, bool isEnabled)
{
    window_.Options().Combo2(box).setEnabled(isEnabled);
}

void FormatScreenView::SelectItem(OptionBox box, qint16 listIndex)
{
    window_.Options().Combo2(box).setCurrentIndex(listIndex);
}

void FormatScreenView::ClearItems(OptionBox box) { window_.Options().Combo2(box).clear(); }

void FormatScreenView::AddItem(OptionBox box, const QString& item)
{
    window_.Options().Combo2(box).addItem(item);
}

void FormatScreenView::EnableSession(writing::SessionOption option, bool isEnabled)
{
    window_.Options().MultiSession(option).setEnabled(isEnabled);
}

void FormatScreenView::SelectSession(writing::SessionOption option)
{
    window_.Options().MultiSession(option).setChecked(true);
}

} // namespace velmora::wizard
