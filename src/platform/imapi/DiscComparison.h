// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/DiscPath.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <vector>

namespace velmora::imapi {

/// The outcome of comparing a disc with what was written to it.
enum class ComparisonEnd : quint8 {
    NotBegun,   ///< nothing was written, or not all of it
    Unwanted,   ///< the user doesn't want it
    Same,       ///< every sector was read and is as written
    Hurt,       ///< the disc was read, and parts of it aren't as written
    Stopped,    ///< on request; what was compared so far is as written
    Impossible, ///< no access to drive or disc; what was compared so far is as written
};

/// A stretch of a disc that isn't as written. Sectors are of 2048 bytes, counted from the start of
/// the disc.
struct HurtPlace {
    qint64 firstSector = 0;
    qint64 lastSector = 0;
    bool isUnreadable = false; ///< it gives no bytes; else it gives other ones

    bool operator==(const HurtPlace&) const = default;
};

/// A file that lies, at least in part, in a damaged range.
struct HurtFile {
    text::DiscPath path;   ///< without a leading backslash
    quint64 firstByte = 0; ///< of the file, the first damaged one

    bool operator==(const HurtFile&) const = default;
};

/// The result of comparing a disc with what was written to it.
struct DiscComparison {
    static constexpr std::size_t kMostNamed = 20;

    ComparisonEnd end = ComparisonEnd::NotBegun;
    qint64 sectors = 0;               ///< of the recording
    qint64 sameSectors = 0;           ///< from the recording's start on, known to be as written
    std::vector<HurtPlace> places {}; ///< in rising order; empty unless Hurt
    /// In the order of the disc, no more than kMostNamed; none if the stream knows no files.
    std::vector<HurtFile> hurtFiles {};
    quint64 hurtFileCount = 0; ///< including those not named here
    /// The disc is damaged in so many places, or so slow to read, that its end wasn't compared.
    bool isCutShort = false;
    QString cause {};     ///< one French sentence or several: why it was impossible
    QByteArray sha256 {}; ///< of all that was written, 32 bytes; empty unless Same
};

} // namespace velmora::imapi
