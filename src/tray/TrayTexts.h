// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "virtual/Recorders.h"

#include <QList>
#include <QString>

#include <string>

namespace velmora::tray {

/// A name for another recorder: "graveur-1".
QString FreeName(const virtualdrive::Recorders& recorders);

/// A disc as the programs that burn see it.
struct SeenDisc {
    virtualdrive::Disc disc;
    drive::DiscInfo info;
    bool isReadable = true; ///< its sectors, if they are needed to tell what it holds
};
/// Examines the disc of a recorder. @param description with a disc
SeenDisc SeeDisc(
    const virtualdrive::RecorderFolder& folder, const virtualdrive::Description& description);

/// The name of a disc for display: "DVD+R".
QString TypeText(const SeenDisc& seen);
/// "vierge", "ouvert, 2 sessions", "fermé", ... and anything special about it.
QString StateText(const SeenDisc& seen);
/// "1,20 Go utilisés, 3,50 Go libres".
QString SpaceText(const SeenDisc& seen);
/// One planned fault.
QString FaultText(const virtualdrive::Fault& fault);
/// All planned faults in one line; empty when there are none.
QString FaultsText(const QList<virtualdrive::Fault>& faults);
/// A recorder and its disc in one line.
QString ShortText(
    const virtualdrive::RecorderFolder& folder, const virtualdrive::Description& description);
/// The question before a recorder is removed. @param name of one that may be unreadable
QString QuestionOfDelete(const virtualdrive::Recorders& recorders, const QString& name);
/// Everything about a recorder, in several lines.
QString LongText(
    const virtualdrive::RecorderFolder& folder, const virtualdrive::Description& description);

/// The share of the disc that is written, 0 to 1.
double UsedShare(const SeenDisc& seen);

/// Lines that are safe for a terminal, in UTF-8.
std::string TextForTerminal(const QString& lines);

} // namespace velmora::tray
