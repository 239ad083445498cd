// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/DiscState.h"

#include "imapi/IDiscFormat2Data.h"
#include "imapi/MediaProfiles.h"

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace velmora::imapi {

namespace {

qint32 ProgressBitsOf(const DiscInfo& disc)
{
    using namespace media_state;
    const qint32 finalSession = disc.canStayOpen ? 0 : kFinalSession;
    switch (disc.state) {
    case DiscState::Blank:
        return kBlank | finalSession;
    case DiscState::Appendable:
        return kAppendable | finalSession;
    case DiscState::Closed:
        return kFinalized | (disc.erasable ? kEraseRequired : 0);
    case DiscState::Overwritable:
        return kOverwriteOnly;
    case DiscState::Unsupported:
        return kUnsupported;
    case DiscState::None:
        break;
    }
    return kUnknown;
}

} // namespace

IMAPI_MEDIA_PHYSICAL_TYPE MediaTypeOf(const DiscInfo& disc)
{
    return disc.state == DiscState::None ? IMAPI_MEDIA_PHYSICAL_TYPE::Unknown
                                         : MediaTypeOfProfile(disc.profile);
}

qint32 MediaStatusOf(const DiscInfo& disc)
{
    qint32 status = ProgressBitsOf(disc);
    if (status == media_state::kUnknown) {
        return status;
    }
    if (disc.damaged) {
        status |= media_state::kDamaged;
    }
    if (disc.lastSessionOpen) {
        status |= media_state::kNonEmptySession;
    }
    if (disc.writeProtected) {
        status |= media_state::kWriteProtected;
    }
    return status;
}

bool IsRecordableDisc(const DiscInfo& disc)
{
    return disc.state != DiscState::None && disc.state != DiscState::Unsupported
        && IsRecordable(MediaTypeOf(disc));
}

qint64 RoomOn(const DiscInfo& disc)
{
    // Such a disc is written from its first sector, so that all of it is room.
    return disc.state == DiscState::Overwritable ? std::max(disc.freeSectors, disc.totalSectors)
                                                 : disc.freeSectors;
}

QList<quint32> SpeedsOf(const DiscInfo& disc)
{
    QList<quint32> speeds = disc.writeSpeeds;
    std::ranges::sort(speeds, std::greater {});
    speeds.erase(std::unique(speeds.begin(), speeds.end()), speeds.end());
    if (speeds.isEmpty()) {
        speeds.append(SingleSpeedOf(MediaTypeOf(disc)));
    }
    return speeds;
}

quint32 NearestSpeed(const QList<quint32>& speeds, qint32 requested)
{
    constexpr qint32 kFastest = -1;
    if (requested == kFastest) {
        return speeds.front();
    }
    const auto distance
        = [requested](quint32 speed) { return std::abs(static_cast<qint64>(speed) - requested); };
    quint32 nearest = speeds.front();
    for (const quint32 speed : speeds) {
        if (distance(speed) <= distance(nearest)) {
            nearest = speed;
        }
    }
    return nearest;
}

} // namespace velmora::imapi
