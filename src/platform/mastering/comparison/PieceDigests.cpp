// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/comparison/PieceDigests.h"

#include <QtEndian>

#include <xxhash.h>

#include <algorithm>
#include <new>

namespace velmora::mastering {

namespace {

PieceDigests::Digest DigestFrom(const XXH128_hash_t& hash) { return {hash.low64, hash.high64}; }

} // namespace

void RunningDigest::FreeState::operator()(XXH3_state_s* state) const { XXH3_freeState(state); }

RunningDigest::RunningDigest()
    : state_(XXH3_createState())
{
    if (!state_) {
        throw std::bad_alloc();
    }
    XXH3_128bits_reset(state_.get());
}

void RunningDigest::Add(std::span<const std::byte> bytes)
{
    XXH3_128bits_update(state_.get(), bytes.data(), bytes.size());
}

RunningDigest::Digest RunningDigest::Finish()
{
    const Digest digest = DigestFrom(XXH3_128bits_digest(state_.get()));
    XXH3_128bits_reset(state_.get());
    return digest;
}

QByteArray BytesOf(const RunningDigest::Digest& digest)
{
    QByteArray bytes(static_cast<qsizetype>(sizeof(digest)), '\0');
    qToBigEndian(digest[1], bytes.data());
    qToBigEndian(digest[0], bytes.data() + sizeof(quint64));
    return bytes;
}

void PieceDigests::Add(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const auto part = bytes.first(std::min(bytes.size(), kPieceBytes - begun_));
        running_.Add(part);
        begun_ += part.size();
        bytes = bytes.subspan(part.size());
        if (begun_ == kPieceBytes) {
            EndPiece();
        }
    }
}

void PieceDigests::EndPiece()
{
    digests_.push_back(running_.Finish());
    begun_ = 0;
}

const std::vector<PieceDigests::Digest>& PieceDigests::Finish()
{
    if (begun_ > 0) {
        EndPiece();
    }
    return digests_;
}

PieceDigests::Digest PieceDigests::Of(std::span<const std::byte> piece)
{
    return DigestFrom(XXH3_128bits(piece.data(), piece.size()));
}

} // namespace velmora::mastering
