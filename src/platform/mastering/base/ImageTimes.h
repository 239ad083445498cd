// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Calendar.h"

#include <QDateTime>

#include <optional>

namespace velmora::mastering {

/// The times in images, if they aren't those of the creation and of the sources.
struct ImageTimes {
    std::optional<image::TimeStamp> made {};   ///< of every image; none: that of its creation
    std::optional<image::TimeStamp> latest {}; ///< later times of entries are recorded as this one
};

/// A moment in the form that images record.
image::TimeStamp StampOf(const QDateTime& moment);

} // namespace velmora::mastering
