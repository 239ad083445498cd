// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/base/DiscState.h"

#include "drive/DiscKinds.h"
#include "imapi/IDiscFormat2Data.h"

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace velmora::mastering {

namespace {

qint32 ProgressBitsOf(const drive::DiscInfo& disc)
{
    using namespace imapi::media_state;
    const qint32 finalSession = disc.canStayOpen ? 0 : kFinalSession;
    switch (disc.state) {
    case drive::DiscState::Blank:
        return kBlank | finalSession;
    case drive::DiscState::Appendable:
        return kAppendable | finalSession;
    case drive::DiscState::Closed:
        return kFinalized | (disc.erasable ? kEraseRequired : 0);
    case drive::DiscState::Overwritable:
        return kOverwriteOnly;
    case drive::DiscState::Unsupported:
        return kUnsupported;
    case drive::DiscState::None:
        break;
    }
    return kUnknown;
}

} // namespace

drive::IMAPI_MEDIA_PHYSICAL_TYPE MediaTypeOf(const drive::DiscInfo& disc)
{
    return disc.state == drive::DiscState::None ? drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown
                                                : drive::MediaTypeOfProfile(disc.profile);
}

qint32 MediaStatusOf(const drive::DiscInfo& disc)
{
    qint32 status = ProgressBitsOf(disc);
    if (status == imapi::media_state::kUnknown) {
        return status;
    }
    if (disc.damaged) {
        status |= imapi::media_state::kDamaged;
    }
    if (disc.lastSessionOpen) {
        status |= imapi::media_state::kNonEmptySession;
    }
    if (disc.writeProtected) {
        status |= imapi::media_state::kWriteProtected;
    }
    return status;
}

bool IsRecordableDisc(const drive::DiscInfo& disc)
{
    return disc.state != drive::DiscState::None && disc.state != drive::DiscState::Unsupported
        && drive::IsRecordable(MediaTypeOf(disc));
}

qint64 RoomOn(const drive::DiscInfo& disc)
{
    // Such a disc is written from its first sector, so all of it is free.
    return disc.state == drive::DiscState::Overwritable
        ? std::max(disc.freeSectors, disc.totalSectors)
        : disc.freeSectors;
}

QList<quint32> SpeedsOf(const drive::DiscInfo& disc)
{
    QList<quint32> speeds = disc.writeSpeeds;
    std::ranges::sort(speeds, std::greater {});
    speeds.erase(std::unique(speeds.begin(), speeds.end()), speeds.end());
    if (speeds.isEmpty()) {
        speeds.append(drive::SingleSpeedOf(MediaTypeOf(disc)));
    }
    return speeds;
}

quint32 NearestSpeed(const QList<quint32>& speeds, qint32 requested)
{
    if (requested == imapi::kFastestWriteSpeed) {
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

} // namespace velmora::mastering
