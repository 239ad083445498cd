// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::compilation {

/// The disc sizes that the user chooses from, the smallest of a format first.
enum class DiscSize : qint8 {
    BdOneLayer,   ///< BDOptionButton1(0)
    BdTwoLayers,  ///< BDOptionButton1(1)
    DvdOneLayer,  ///< DVDOptionButton1(0)
    DvdTwoLayers, ///< DVDOptionButton1(1)
    Cd74Minutes,  ///< CDOptionButton1(0)
    Cd80Minutes,  ///< CDOptionButton1(1)
    Cd90Minutes,  ///< CDOptionButton1(2)
};

/// What a disc of a size holds, in bytes.
double CapacityOf(DiscSize size);

} // namespace velmora::compilation
