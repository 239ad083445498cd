// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/isofile/SectorReader.h"

#include <optional>

namespace velmora::mastering {

/// How far the partitions of a hybrid image or of an image of a disk reach, by its master boot
/// record and its GUID partition table: bytes from the start, including the table's copy at the
/// end. Nothing if the first sector holds no partition table.
std::optional<qint64> EndOfPartitions(const Sector& first);

} // namespace velmora::mastering
