// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiscChoices.h"

#include <QtGlobal>

#include <optional>

namespace velmora::compilation {

// What the discs hold, in bytes, by the format or by the index of the option that chooses them. No
// value: the choice changes no capacity.

/// The smallest disc of a format; none of the disc in the drive.
std::optional<double> CapacityOfFormat(shell::DiscFormat format);
/// BDOptionButton1: 0 one layer, 1 two layers.
std::optional<double> CapacityOfBdOption(qint16 index);
/// DVDOptionButton1: 0 one layer, 1 two layers.
std::optional<double> CapacityOfDvdOption(qint16 index);
/// CDOptionButton1: 0 74 minutes, 1 80 minutes, 2 90 minutes.
std::optional<double> CapacityOfCdOption(qint16 index);

} // namespace velmora::compilation
