// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

struct XXH3_state_s;

namespace velmora::mastering {

/// The XXH3-128 of a stream of bytes.
class RunningDigest {
public:
    using Digest = std::array<quint64, 2>; // low half, high half

    /// Errors: std::bad_alloc.
    RunningDigest();

    void Add(std::span<const std::byte> bytes);
    /// The digest of everything added; further bytes start a new one.
    Digest Finish();

private:
    struct FreeState {
        void operator()(XXH3_state_s* state) const;
    };

    std::unique_ptr<XXH3_state_s, FreeState> state_;
};

/// 16 bytes, high byte first.
QByteArray BytesOf(const RunningDigest::Digest& digest);

/// A short digest of each piece of a recording, for comparing it: it detects accidental damage, not
/// tampering, and is ten times as fast as one that does both.
class PieceDigests {
public:
    static constexpr std::size_t kPieceBytes = std::size_t {1} << 20;
    using Digest = RunningDigest::Digest;

    /// Adds the next bytes.
    void Add(std::span<const std::byte> bytes);

    /// The digest of each piece; the last piece may be shorter. Nothing can be added afterwards.
    const std::vector<Digest>& Finish();

    /// The digest of one piece.
    static Digest Of(std::span<const std::byte> piece);

private:
    void EndPiece();

    RunningDigest running_; // of the piece that was begun
    std::size_t begun_ = 0; // bytes of it
    std::vector<Digest> digests_;
};

} // namespace velmora::mastering
