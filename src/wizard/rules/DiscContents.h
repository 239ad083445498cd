// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/DiscKinds.h"
#include "imapi/DiscComparison.h"

#include <QString>

#include <vector>

namespace velmora::wizard {

/// What a disc looks like.
enum class DiscLook : qint8 { Cd, Dvd, BluRay };

/// A disc of no known family looks like a DVD.
DiscLook LookOf(drive::DiscFamily family);

/// What is known of the contents of a disc. Sectors are of 2048 bytes.
struct DiscContents {
    DiscLook look = DiscLook::Dvd;
    qint64 roomSectors = 0;    ///< of the whole disc
    qint64 earlierSectors = 0; ///< recorded before, from the disc's start on
    qint64 plannedSectors = 0; ///< to be recorded after them
    qint64 writtenSectors = 0; ///< of the planned ones
    qint64 comparedSectors = 0;
    std::vector<imapi::HurtPlace> hurtPlaces {}; ///< from the disc's start on
};

/// The contents of a stretch of a disc. Later kinds are drawn over earlier ones.
enum class StretchKind : qint8 { Planned, TooMuch, Earlier, Written, Compared, Hurt };

/// A stretch of a disc, in shares of its capacity: 0 is the first sector, 1 the rim.
struct DiscStretch {
    StretchKind kind;
    double from;
    double to;

    bool operator==(const DiscStretch&) const = default;
};

/// The stretches to draw, in the order of their kinds. Contents beyond the disc's capacity are
/// TooMuch, and cover the whole disc. None if the capacity isn't known.
std::vector<DiscStretch> StretchesOf(const DiscContents& contents);

/// Where a share of a disc ends, between the radii of its first and its last sector: sectors take
/// as much area at the rim as inside, so shares are shares of the area.
double RadiusAt(double share, double inner, double outer);

/// The picture in words, French: percent of the disc's capacity, written and compared.
QString WordsOf(const DiscContents& contents);

} // namespace velmora::wizard
