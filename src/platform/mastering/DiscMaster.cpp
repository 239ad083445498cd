// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/DiscMaster.h"

namespace velmora::mastering {

DiscMaster::DiscMaster(const DriveSources& sources)
{
    for (const auto& source : sources) {
        ids_ += source->Ids();
    }
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
