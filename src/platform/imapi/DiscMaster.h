// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/DriveSide.h"
#include "imapi/IDiscMaster2.h"

#include <QStringList>

namespace velmora::imapi {

/// The recorders of all sources, source by source, as they were when the object was made: a drive
/// that comes or goes meanwhile moves no index.
class DiscMaster final : public IDiscMaster2 {
public:
    explicit DiscMaster(const DriveSources& sources);

    qint32 Count() const override;
    QString Item(qint32 index) const override;

private:
    QStringList ids_;
};

} // namespace velmora::imapi
