// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscMaster2.h"
#include "mastering/base/MasteringContext.h"

#include <QStringList>

#include <memory>

namespace velmora::mastering {

/// The recorders of all sources, source by source, followed by those that came later: a place that
/// the user chose in the list means the same drive as long as the program runs. A drive that is
/// gone keeps its place, and fails.
class DiscMaster final : public imapi::IDiscMaster2 {
public:
    /// Lists the drives present now; what was seen in them before is forgotten.
    explicit DiscMaster(MasteringContext& context);

    qint32 Count() const override;
    QString Item(qint32 index) const override;

private:
    QStringList ids_;
};

} // namespace velmora::mastering
