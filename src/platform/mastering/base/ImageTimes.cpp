// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/base/ImageTimes.h"

namespace velmora::mastering {

image::TimeStamp StampOf(const QDateTime& moment)
{
    constexpr qint64 kMillisecondsPerSecond = 1000;
    const qint64 milliseconds = moment.toMSecsSinceEpoch();
    const qint64 rest
        = (milliseconds % kMillisecondsPerSecond + kMillisecondsPerSecond) % kMillisecondsPerSecond;
    return {(milliseconds - rest) / kMillisecondsPerSecond, static_cast<quint32>(rest * 1000)};
}

} // namespace velmora::mastering
