// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/Recorders.h"

#include <QString>

namespace velmora::tray {

/// A name for another recorder: "graveur-1".
QString FreeName(const virtualdrive::Recorders& recorders);

/// What a person reads of a disc: "DVD+R".
QString TypeText(const virtualdrive::Disc& disc);
/// "vierge", "ouvert, 2 sessions", "fermé", ... with what else is special about it.
QString StateText(const virtualdrive::Disc& disc, const virtualdrive::DriveDescription& drive);
/// "4,70 Go libres sur 4,70 Go".
QString SpaceText(const virtualdrive::Disc& disc, const virtualdrive::DriveDescription& drive);
/// One planned fault.
QString FaultText(const virtualdrive::Fault& fault);
/// A recorder and its disc in one line.
QString ShortText(const QString& name, const virtualdrive::Description& description);
/// All that there is to say, several lines.
QString LongText(
    const QString& name, const QString& folder, const virtualdrive::Description& description);

/// Part of the disc that is written, 0 to 1.
double UsedShare(const virtualdrive::Disc& disc, const virtualdrive::DriveDescription& drive);

} // namespace velmora::tray
