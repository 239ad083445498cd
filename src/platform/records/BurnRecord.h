// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QtGlobal>

#include <optional>
#include <string>
#include <vector>

namespace velmora::records {

/// A file that was burned, and where it lies on the disc.
struct RecordedFile {
    std::string path {}; ///< native, '/' between the names, no leading one
    qint64 firstSector = 0;
    quint64 bytes = 0;
    QByteArray digest {}; ///< XXH3-128 of its bytes, 16 bytes, high byte first

    bool operator==(const RecordedFile&) const = default;
};

/// What is kept of one burn. Sectors are 2048 bytes, counted from the start of the disc.
struct BurnRecord {
    static constexpr qint64 kPieceBytes = qint64 {1} << 20;
    static constexpr qsizetype kDigestBytes = 16;
    /// Files beyond this many aren't listed: a record stays small.
    static constexpr std::size_t kMostFiles = 100'000;

    QDateTime date {};   ///< UTC
    QString recorder {}; ///< as shown to the user
    QString disc {};     ///< its kind, as it is printed on discs
    QString volume {};   ///< the disc's name; empty if unknown
    qint64 firstSector = 0;
    qint64 sectors = 0;
    QByteArray sha256 {}; ///< of all of them, 32 bytes
    /// XXH3-128 of each MiB, the last of which may be shorter; 16 bytes each, high byte first.
    QByteArray pieces {};
    std::vector<RecordedFile> files {}; ///< in the order of the disc

    bool operator==(const BurnRecord&) const = default;
};

/// A record as the JSON text that is stored.
QByteArray TextOf(const BurnRecord& record);

/// The record in a JSON text; nothing for any other text.
std::optional<BurnRecord> RecordFrom(const QByteArray& text);

} // namespace velmora::records
