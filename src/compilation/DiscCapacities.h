// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <optional>

namespace velmora::compilation {

// What the discs hold, in bytes, by the index of the button that chooses them. No value: the button
// changes no capacity.

/// CorvaneButton2: 0 Blu-ray, 1 DVD, 2 CD.
std::optional<double> CapacityOfFormat(qint16 index);
/// BDOptionButton1: 0 one layer, 1 two layers.
std::optional<double> CapacityOfBdOption(qint16 index);
/// DVDOptionButton1: 0 one layer, 1 two layers.
std::optional<double> CapacityOfDvdOption(qint16 index);
/// CDOptionButton1: 0 74 minutes, 1 80 minutes, 2 90 minutes.
std::optional<double> CapacityOfCdOption(qint16 index);

} // namespace velmora::compilation
