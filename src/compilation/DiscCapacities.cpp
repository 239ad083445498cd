// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/DiscCapacities.h"

namespace velmora::compilation {

double CapacityOf(DiscSize size)
{
    switch (size) {
    case DiscSize::BdOneLayer:
        return 25000000000;
    case DiscSize::BdTwoLayers:
        return 50000000000;
    case DiscSize::DvdOneLayer:
        return 4700000000;
    case DiscSize::DvdTwoLayers:
        return 8500000000;
    case DiscSize::Cd74Minutes:
        return 640000000;
    case DiscSize::Cd80Minutes:
        return 700000000;
    case DiscSize::Cd90Minutes:
        return 800000000;
    }
    return 0;
}

} // namespace velmora::compilation
