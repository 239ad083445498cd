// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscMaster2.h"
#include "mastering/DriveSide.h"

#include <QStringList>

namespace velmora::mastering {

/// The recorders of all sources, source by source, as they were when the object was made: a drive
/// that comes or goes meanwhile moves no index.
class DiscMaster final : public imapi::IDiscMaster2 {
public:
    explicit DiscMaster(const DriveSources& sources);

    qint32 Count() const override;
    QString Item(qint32 index) const override;

private:
    QStringList ids_;
};

} // namespace velmora::mastering
