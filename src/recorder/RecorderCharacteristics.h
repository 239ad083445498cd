// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>

namespace velmora::recorder {

struct RecorderState;

/// What FrmBurner shows of a recorder: the contents of its two arrays of boxes.
struct RecorderCharacteristics {
    /// Maker, product, revision, place, and "Oui" or "Non" for a tray that loads itself.
    std::array<QString, 5> Text1;
    /// Names of discs, each on a line with a line break: CD, DVD-, DVD+, BD.
    std::array<QString, 4> Text2;
};

/// Describes a recorder as it was found at the start; no drive is queried.
/// Error 9 outside the list.
RecorderCharacteristics DescribeRecorder(const RecorderState& state, qint16 Combo1ListIndex);

} // namespace velmora::recorder
