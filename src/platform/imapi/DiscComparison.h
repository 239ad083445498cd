// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <vector>

namespace velmora::imapi {

/// How it ended to compare a disc with what was written to it.
enum class ComparisonEnd : quint8 {
    NotBegun,   ///< nothing was written, or not all of it
    Unwanted,   ///< nobody wants it
    Same,       ///< every sector was read, and all of them are as written
    Hurt,       ///< the disc was read, and there are places that aren't as written
    Stopped,    ///< on request; what was compared until then is as written
    Impossible, ///< drive or disc weren't to be had; what was compared until then is as written
};

/// A stretch of a disc that isn't as written. Sectors are of 2048 bytes, counted from the start of
/// the disc.
struct HurtPlace {
    qint64 firstSector = 0;
    qint64 lastSector = 0;
    bool isUnreadable = false; ///< it gives no bytes; else it gives other ones

    bool operator==(const HurtPlace&) const = default;
};

/// A file that lies, at least in part, in a hurt place.
struct HurtFile {
    QString path;          ///< program path on the disc, without a backslash in front
    quint64 firstByte = 0; ///< of the file, the first that is hurt

    bool operator==(const HurtFile&) const = default;
};

/// What came of comparing a disc with what was written to it.
struct DiscComparison {
    static constexpr std::size_t kMostNamed = 20;

    ComparisonEnd end = ComparisonEnd::NotBegun;
    qint64 sectors = 0;               ///< of the recording
    qint64 sameSectors = 0;           ///< from the recording's start on, known to be as written
    std::vector<HurtPlace> places {}; ///< in rising order; empty unless Hurt
    /// In the order of the disc, no more than kMostNamed; none where the stream knows no files.
    std::vector<HurtFile> hurtFiles {};
    quint64 hurtFileCount = 0; ///< those without a name here included
    /// The disc is hurt in so many places, or so slow to read, that its end was left uncompared.
    bool isCutShort = false;
    QString cause {};     ///< one French sentence or several: why it was impossible
    QByteArray sha256 {}; ///< of all that was written, 32 bytes; empty unless Same
};

} // namespace velmora::imapi
