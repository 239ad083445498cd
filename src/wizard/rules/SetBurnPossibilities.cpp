// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SetBurnPossibilities.h"

#include "recorder/ProfileNames.h"
#include "wizard/rules/FormatScreen.h"

namespace velmora::wizard {

namespace {

namespace mask = recorder::media_mask;

quint32 ColourOf(bool isPossible)
{
    return isPossible ? format_colour::kPossible : format_colour::kImpossible;
}

void PaintBluRay(qint32 mediaMask, FormatScreen& screen)
{
    const bool isPossible = (mediaMask & mask::kBd) != 0;
    screen.Paint({FormatKind::Data, 0}, ColourOf(isPossible));
    if (isPossible) {
        const bool hasTwoLayers = (mediaMask & mask::kBdR) != 0;
        screen.EnableSize(compilation::DiscSize::BdTwoLayers, hasTwoLayers);
    }
}

void PaintDvd(qint32 mediaMask, FormatScreen& screen)
{
    const bool isPossible = (mediaMask & mask::kDvdR) != 0;
    const quint32 colour = ColourOf(isPossible);
    screen.Paint({FormatKind::Data, 1}, colour);
    screen.Paint({FormatKind::Audio, 0}, colour);
    screen.Paint({FormatKind::Video, 0}, colour);
    if (isPossible) {
        const bool hasTwoLayers = (mediaMask & mask::kDvdDualLayer) != 0;
        screen.EnableSize(compilation::DiscSize::DvdTwoLayers, hasTwoLayers);
        screen.Paint({FormatKind::Video, 1}, ColourOf(hasTwoLayers));
    } else {
        screen.Paint({FormatKind::Video, 1}, colour);
        screen.Paint({FormatKind::Video, 2}, colour);
    }
}

void PaintCd(qint32 mediaMask, FormatScreen& screen)
{
    const quint32 colour = ColourOf((mediaMask & mask::kCdR) != 0);
    screen.Paint({FormatKind::Data, 2}, colour);
    screen.Paint({FormatKind::Audio, 1}, colour);
}

} // namespace

void SetBurnPossibilities(qint32 mediaMask, FormatScreen& screen)
{
    PaintBluRay(mediaMask, screen);
    PaintDvd(mediaMask, screen);
    PaintCd(mediaMask, screen);
}

} // namespace velmora::wizard
