// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/disc/DiscMaster.h"

#include "drive/PublishedCodes.h"

namespace velmora::mastering {

DiscMaster::DiscMaster(DriveSide& side)
{
    for (const auto& source : side.sources) {
        for (const QString& id : source->Ids()) {
            if (!side.recorders.contains(id)) {
                side.recorders.append(id);
            }
        }
    }
    side.lastQueriedDisc.reset();
    ids_ = side.recorders;
}

qint32 DiscMaster::Count() const { return static_cast<qint32>(ids_.size()); }

QString DiscMaster::Item(qint32 index) const
{
    if (index < 0 || index >= ids_.size()) {
        throw drive::PublishedError(drive::hresult::kInvalidArgument);
    }
    return ids_[index];
}

} // namespace velmora::mastering
