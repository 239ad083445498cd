// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/PieceDigests.h"

#include <xxhash.h>

#include <algorithm>
#include <new>

namespace velmora::mastering {

namespace {

PieceDigests::Digest DigestFrom(const XXH128_hash_t& hash) { return {hash.low64, hash.high64}; }

} // namespace

void PieceDigests::FreeState::operator()(XXH3_state_s* state) const { XXH3_freeState(state); }

PieceDigests::PieceDigests()
    : state_(XXH3_createState())
{
    if (!state_) {
        throw std::bad_alloc();
    }
    XXH3_128bits_reset(state_.get());
}

void PieceDigests::Add(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const auto part = bytes.first(std::min(bytes.size(), kPieceBytes - begun_));
        XXH3_128bits_update(state_.get(), part.data(), part.size());
        begun_ += part.size();
        bytes = bytes.subspan(part.size());
        if (begun_ == kPieceBytes) {
            EndPiece();
        }
    }
}

void PieceDigests::EndPiece()
{
    digests_.push_back(DigestFrom(XXH3_128bits_digest(state_.get())));
    XXH3_128bits_reset(state_.get());
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
