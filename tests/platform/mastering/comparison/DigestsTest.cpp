// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/comparison/PieceDigests.h"
#include "mastering/comparison/WrittenTrack.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

#include <algorithm>

namespace velmora::mastering {

namespace {

std::vector<std::byte> Numbered(std::size_t size)
{
    std::vector<std::byte> bytes(size);
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<std::byte>(i % 251);
    }
    return bytes;
}

/// Gives the bytes in portions that don't match the pieces.
template <class Digests> void AddInPortions(Digests& digests, std::span<const std::byte> bytes)
{
    constexpr std::size_t kPortion = 100'003;
    while (!bytes.empty()) {
        const auto portion = bytes.first(std::min(kPortion, bytes.size()));
        digests.Add(portion);
        bytes = bytes.subspan(portion.size());
    }
}

} // namespace

TEST(PieceDigestsTest, EachPieceHasTheDigestThatItHasAlone)
{
    const auto bytes = Numbered(2 * PieceDigests::kPieceBytes + 5);
    PieceDigests digests;
    AddInPortions(digests, bytes);
    const auto all = std::span<const std::byte>(bytes);
    EXPECT_EQ(digests.Finish(),
        (std::vector {PieceDigests::Of(all.first(PieceDigests::kPieceBytes)),
            PieceDigests::Of(all.subspan(PieceDigests::kPieceBytes, PieceDigests::kPieceBytes)),
            PieceDigests::Of(all.last(5))}));
}

TEST(PieceDigestsTest, AWholePieceIsFollowedByNone)
{
    PieceDigests digests;
    digests.Add(Numbered(PieceDigests::kPieceBytes));
    EXPECT_EQ(digests.Finish().size(), 1U);
    EXPECT_EQ(PieceDigests().Finish().size(), 0U);
}

TEST(PieceDigestsTest, OneBitMakesAnotherDigest)
{
    auto bytes = Numbered(PieceDigests::kPieceBytes);
    const auto before = PieceDigests::Of(bytes);
    bytes.back() ^= std::byte {1};
    EXPECT_NE(PieceDigests::Of(bytes), before);
}

TEST(WrittenTrackTest, HasTheSha256OfAllBytes)
{
    for (const std::size_t size : {0U, 1U, 262'144U, 262'145U, 3'000'000U}) {
        const auto bytes = Numbered(size);
        WrittenTrack track(static_cast<qint64>(size / 2048));
        std::size_t given = 0;
        const drive::WriteSource source = track.Watched([&](std::span<std::byte> out) {
            std::ranges::copy(std::span(bytes).subspan(given, out.size()), out.begin());
            given += out.size();
        });
        std::vector<std::byte> taken(100'003); // matches no piece
        while (given < size) {
            source(std::span(taken).first(std::min(taken.size(), size - given)));
        }
        EXPECT_EQ(track.Sha256(),
            QCryptographicHash::hash(QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                         static_cast<qsizetype>(bytes.size())),
                QCryptographicHash::Sha256))
            << size;
    }
}

} // namespace velmora::mastering
