// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QtGlobal>

#include <optional>

namespace velmora::records {

/// How a write failed, as far as it helps to find out why. It names no file, disc or person, so it
/// can be passed on as it is.
struct WriteFailure {
    QDateTime date {};   ///< UTC
    QString recorder {}; ///< vendor and product, as the drive reports them
    QString revision {}; ///< of the drive's firmware
    QString disc {};     ///< its kind, as it is printed on discs
    QString step {};     ///< of the write, one English word
    qint32 number = 0;   ///< of the error, as the user saw it
    QString sense {};    ///< why the drive refused: key/code/qualifier in hex; empty if it didn't
    qint64 sectors = 0;  ///< of 2048 bytes, to be written

    bool operator==(const WriteFailure&) const = default;
};

/// A failure as the JSON that is stored and reported, and back; nothing for any other object.
QJsonObject ObjectOf(const WriteFailure& failure);
std::optional<WriteFailure> FailureFrom(const QJsonObject& facts);

} // namespace velmora::records
