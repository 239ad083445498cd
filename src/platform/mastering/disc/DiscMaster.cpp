// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/disc/DiscMaster.h"

#include "drive/PublishedCodes.h"

namespace velmora::mastering {

DiscMaster::DiscMaster(MasteringContext& context)
{
    for (const auto& source : context.sources) {
        for (const QString& id : source->Ids()) {
            if (!context.recorders.contains(id)) {
                context.recorders.append(id);
            }
        }
    }
    context.lastQueriedDisc.reset();
    ids_ = context.recorders;
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
