// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/PieceDigests.h"

#include <algorithm>

namespace velmora::terminal {

void PieceDigests::Add(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const quint64 toPieceEnd = kPieceBytes - bytes_ % kPieceBytes;
        const auto part = bytes.first(std::min<std::size_t>(toPieceEnd, bytes.size()));
        hash_.addData(
            {reinterpret_cast<const char*>(part.data()), static_cast<qsizetype>(part.size())});
        bytes_ += part.size();
        bytes = bytes.subspan(part.size());
        if (bytes_ % kPieceBytes == 0) {
            atPieceEnds_.push_back(hash_.result());
        }
    }
}

std::optional<std::size_t> FirstDifference(const PieceDigests& one, const PieceDigests& other)
{
    const auto& left = one.AtPieceEnds();
    const auto& right = other.AtPieceEnds();
    const auto shared = std::min(left.size(), right.size());
    for (std::size_t piece = 0; piece < shared; ++piece) {
        if (left[piece] != right[piece]) {
            return piece;
        }
    }
    return std::nullopt;
}

} // namespace velmora::terminal
