// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <QtGlobal>

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace velmora::terminal {

/// The SHA-256 of bytes that come one after the other, and what it was at the end of each piece, so
/// that two recordings of a whole disc can be told apart by their places.
class PieceDigests {
public:
    static constexpr quint64 kPieceBytes = 16 << 20;

    void Add(std::span<const std::byte> bytes);

    quint64 Bytes() const { return bytes_; }
    /// Of all bytes so far.
    QByteArray Digest() const { return hash_.result(); }
    /// Of all bytes up to the end of each whole piece.
    const std::vector<QByteArray>& AtPieceEnds() const { return atPieceEnds_; }

private:
    QCryptographicHash hash_ {QCryptographicHash::Sha256};
    quint64 bytes_ = 0;
    std::vector<QByteArray> atPieceEnds_;
};

/// The first piece, counted from 0, that is whole in both and different.
std::optional<std::size_t> FirstDifference(const PieceDigests& one, const PieceDigests& other);

} // namespace velmora::terminal
