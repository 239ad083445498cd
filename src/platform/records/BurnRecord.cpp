// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/BurnRecord.h"

#include "drive/SectorSize.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace velmora::records {

using namespace Qt::StringLiterals;

namespace {

constexpr int kVersion = 1;
constexpr qsizetype kSha256Bytes = 32;

QString Base64(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toBase64(QByteArray::OmitTrailingEquals));
}

QByteArray BytesFrom(const QJsonValue& base64)
{
    return QByteArray::fromBase64(base64.toString().toLatin1());
}

/// Text can't hold a name that isn't UTF-8.
QJsonValue PathValue(const std::string& path)
{
    const auto bytes = QByteArray::fromStdString(path);
    const QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() == bytes) {
        return text;
    }
    return QJsonObject {{u"base64"_s, Base64(bytes)}};
}

std::string PathFrom(const QJsonValue& value)
{
    return value.isObject() ? BytesFrom(value[u"base64"]).toStdString()
                            : value.toString().toStdString();
}

QJsonArray FilesOf(const BurnRecord& record)
{
    QJsonArray files;
    for (const RecordedFile& file : record.files) {
        files.append(QJsonArray {PathValue(file.path),
            file.firstSector,
            static_cast<qint64>(file.bytes),
            Base64(file.digest)});
    }
    return files;
}

std::optional<RecordedFile> FileFrom(const QJsonArray& parts)
{
    constexpr qsizetype kParts = 4;
    if (parts.size() != kParts) {
        return std::nullopt;
    }
    RecordedFile file {.path = PathFrom(parts[0]),
        .firstSector = parts[1].toInteger(-1),
        .bytes = static_cast<quint64>(parts[2].toInteger()),
        .digest = BytesFrom(parts[3])};
    const bool isWhole = !file.path.empty() && file.firstSector >= 0
        && file.digest.size() == BurnRecord::kDigestBytes;
    return isWhole ? std::optional(std::move(file)) : std::nullopt;
}

bool IsSound(const BurnRecord& record)
{
    constexpr auto kMostSectors = Q_INT64_C(0xFFFFFFFF);
    if (record.sectors <= 0 || record.sectors > kMostSectors || record.firstSector < 0
        || record.firstSector > kMostSectors || !record.date.isValid()) {
        return false;
    }
    const qint64 pieces = (record.sectors * drive::kSectorBytes + BurnRecord::kPieceBytes - 1)
        / BurnRecord::kPieceBytes;
    return record.sha256.size() == kSha256Bytes
        && record.pieces.size() == pieces * BurnRecord::kDigestBytes
        && std::ranges::is_sorted(record.files, {}, &RecordedFile::firstSector);
}

} // namespace

QByteArray TextOf(const BurnRecord& record)
{
    const QJsonObject text {{u"version"_s, kVersion},
        {u"date"_s, record.date.toUTC().toString(Qt::ISODate)},
        {u"recorder"_s, record.recorder},
        {u"disc"_s, record.disc},
        {u"volume"_s, record.volume},
        {u"firstSector"_s, record.firstSector},
        {u"sectors"_s, record.sectors},
        {u"sha256"_s, QString::fromLatin1(record.sha256.toHex())},
        {u"xxh128OfEachMiB"_s, Base64(record.pieces)},
        {u"files"_s, FilesOf(record)}};
    return QJsonDocument(text).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<BurnRecord> RecordFrom(const QByteArray& text)
{
    const QJsonObject facts = QJsonDocument::fromJson(text).object();
    if (facts[u"version"].toInt() != kVersion) {
        return std::nullopt;
    }
    BurnRecord record {.date = QDateTime::fromString(facts[u"date"].toString(), Qt::ISODate),
        .recorder = facts[u"recorder"].toString(),
        .disc = facts[u"disc"].toString(),
        .volume = facts[u"volume"].toString(),
        .firstSector = facts[u"firstSector"].toInteger(-1),
        .sectors = facts[u"sectors"].toInteger(),
        .sha256 = QByteArray::fromHex(facts[u"sha256"].toString().toLatin1()),
        .pieces = BytesFrom(facts[u"xxh128OfEachMiB"])};
    const QJsonArray files = facts[u"files"].toArray();
    for (const auto& told : files) {
        std::optional<RecordedFile> file = FileFrom(told.toArray());
        if (!file) {
            return std::nullopt;
        }
        record.files.push_back(*std::move(file));
    }
    return IsSound(record) ? std::optional(std::move(record)) : std::nullopt;
}

} // namespace velmora::records
