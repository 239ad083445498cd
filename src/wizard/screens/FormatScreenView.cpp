// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/FormatScreenView.h"

#include "wizard/FrmMain.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/OptionsPage.h"
#include "wizard/pages/SilentFormatPage.h"

namespace velmora::wizard {

FormatScreenView::FormatScreenView(FrmMain& window)
    : window_(window)
{
}

void FormatScreenView::SetPossible(FormatButton button, bool isPossible)
{
    switch (button.kind) {
    case FormatKind::Data:
        window_.Formats().SetPossible(static_cast<shell::DiscFormat>(button.index), isPossible);
        break;
    case FormatKind::Audio:
        window_.AudioFormats().SetPossible(button.index, isPossible);
        break;
    case FormatKind::Video:
        window_.VideoFormats().SetPossible(button.index, isPossible);
        break;
    }
}

bool FormatScreenView::IsPossible(shell::DiscFormat format) const
{
    return window_.Formats().IsPossible(format);
}

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

void FormatScreenView::EnableDataMode(bool isEnabled)
{
    window_.Options().EnableDataMode(isEnabled);
}

void FormatScreenView::SelectDataMode(writing::DataMode mode)
{
    window_.Options().SelectDataMode(mode);
}

void FormatScreenView::EnableFileSystem(bool isEnabled)
{
    window_.Options().EnableFileSystem(isEnabled);
}

void FormatScreenView::SelectFileSystem(writing::FileSystemOption fileSystem)
{
    window_.Options().SelectFileSystem(fileSystem);
}

void FormatScreenView::ClearSpeeds() { window_.Options().ClearSpeeds(); }

void FormatScreenView::OfferSpeed(const QString& speed) { window_.Options().OfferSpeed(speed); }

void FormatScreenView::SelectFirstSpeed() { window_.Options().SelectFirstSpeed(); }

void FormatScreenView::EnableSession(writing::SessionOption option, bool isEnabled)
{
    window_.Options().EnableSession(option, isEnabled);
}

void FormatScreenView::SelectSession(writing::SessionOption option)
{
    window_.Options().SelectSession(option);
}

} // namespace velmora::wizard
