// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SetBurnPossibilities.h"

#include "recorder/ProfileNames.h"
#include "wizard/rules/FormatScreen.h"

namespace velmora::wizard {

using compilation::DiscSize;
using shell::DiscFormat;

namespace {

namespace mask = recorder::media_mask;

void OfferBluRay(qint32 mediaMask, FormatScreen& screen)
{
    const bool isPossible = (mediaMask & mask::kBd) != 0;
    screen.SetPossible(ButtonOf(DiscFormat::BluRay), isPossible);
    if (isPossible) {
        const bool hasTwoLayers = (mediaMask & mask::kBdR) != 0;
        screen.EnableSize(DiscSize::BdTwoLayers, hasTwoLayers);
    }
}

void OfferDvd(qint32 mediaMask, FormatScreen& screen)
{
    const bool isPossible = (mediaMask & mask::kDvdR) != 0;
    screen.SetPossible(ButtonOf(DiscFormat::Dvd), isPossible);
    screen.SetPossible({FormatKind::Audio, 0}, isPossible);
    screen.SetPossible({FormatKind::Video, 0}, isPossible);
    if (isPossible) {
        const bool hasTwoLayers = (mediaMask & mask::kDvdDualLayer) != 0;
        screen.EnableSize(DiscSize::DvdTwoLayers, hasTwoLayers);
        screen.SetPossible({FormatKind::Video, 1}, hasTwoLayers);
    } else {
        screen.SetPossible({FormatKind::Video, 1}, false);
        screen.SetPossible({FormatKind::Video, 2}, false);
    }
}

void OfferCd(qint32 mediaMask, FormatScreen& screen)
{
    const bool isPossible = (mediaMask & mask::kCdR) != 0;
    screen.SetPossible(ButtonOf(DiscFormat::Cd), isPossible);
    screen.SetPossible({FormatKind::Audio, 1}, isPossible);
}

} // namespace

void SetBurnPossibilities(qint32 mediaMask, FormatScreen& screen)
{
    OfferBluRay(mediaMask, screen);
    OfferDvd(mediaMask, screen);
    OfferCd(mediaMask, screen);
}

} // namespace velmora::wizard
