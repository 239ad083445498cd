// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Data.h"
#include "recorder/DetectMedia.h"
#include "writing/BurnOptions.h"

#include <QString>

#include <vector>

namespace velmora::writing {

/// The speed that a disc is written with.
struct SpeedChoice {
    double writeSpeed = imapi::kFastestWriteSpeed; ///< what is requested from the writer
    QString retainedMultiplier;                    ///< what the log reports
};

/// The fastest speed of the disc that doesn't exceed the selection: the fastest of all for a text
/// without a number, and also where even the slowest exceeds it. For a disc whose speeds have no
/// multipliers the selection's number itself is requested, and the place in the list, counted from
/// its end, is reported. Error 9 for an empty list of speeds.
SpeedChoice ChooseSpeed(
    const SpeedSelection& selection, const std::vector<recorder::SpeedEntry>& SpeedList);

} // namespace velmora::writing
