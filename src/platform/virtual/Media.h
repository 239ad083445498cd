// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/DiscKinds.h"

#include <QString>
#include <QStringView>
#include <QtGlobal>

#include <array>
#include <span>

namespace velmora::virtualdrive {

using drive::Formatting;
using drive::Recording;

/// One kind of disc that can be inserted: a profile, in one of its sizes. Sectors are 2048 bytes.
struct MediumFacts {
    QStringView key;  ///< how it is named in descriptions and on command lines: "dvd+r"
    QStringView name; ///< as shown to the user
    qint32 profile;   ///< MMC profile number
    Recording recording;
    qint64 capacity;  ///< 0 for a pressed disc: as large as its contents
    bool canStayOpen; ///< a session can be left open for another
    Formatting formatting;
    qint64 firstGap;               ///< sectors between the first session and the second
    qint64 laterGap;               ///< between later sessions
    qint64 padTo;                  ///< a recording ends at a multiple of this many sectors
    std::array<quint32, 6> speeds; ///< sectors per second, fastest first, 0 = none
};

/// All kinds of disc, in the order in which they are listed.
std::span<const MediumFacts> AllMedia();

/// The kind of disc of that key; nullptr if there is none.
const MediumFacts* FindMedium(QStringView key);

/// The pressed disc that an image of this many sectors fits on.
const MediumFacts& PressedFor(qint64 sectors);

} // namespace velmora::virtualdrive
