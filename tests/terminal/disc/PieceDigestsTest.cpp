// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/PieceDigests.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

namespace {

constexpr std::size_t kPiece = PieceDigests::kPieceBytes;

std::vector<std::byte> Bytes(std::size_t count, std::byte value = std::byte {7})
{
    return std::vector<std::byte>(count, value);
}

QByteArray Sha256(const std::vector<std::byte>& bytes)
{
    return QCryptographicHash::hash(
        {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())},
        QCryptographicHash::Sha256);
}

} // namespace

TEST(PieceDigestsTest, TheDigestIsThatOfAllBytes)
{
    PieceDigests digests;
    for (const char* part : {"a", "b", "c"}) {
        digests.Add(std::as_bytes(std::span(part, 1)));
    }
    EXPECT_EQ(digests.Bytes(), 3U);
    EXPECT_EQ(digests.Digest().toHex(), // FIPS 180-2, B.1
        QByteArrayLiteral("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
    EXPECT_TRUE(digests.AtPieceEnds().empty());
}

TEST(PieceDigestsTest, APieceEndsWherePartsOfAnySizeReachIt)
{
    const auto all = Bytes(2 * kPiece + 5);
    PieceDigests digests;
    const std::span<const std::byte> bytes(all);
    digests.Add(bytes.first(kPiece - 1));
    EXPECT_EQ(digests.AtPieceEnds().size(), 0U);
    digests.Add(bytes.subspan(kPiece - 1));
    ASSERT_EQ(digests.AtPieceEnds().size(), 2U);
    EXPECT_EQ(digests.AtPieceEnds()[0], Sha256(Bytes(kPiece)));
    EXPECT_EQ(digests.AtPieceEnds()[1], Sha256(Bytes(2 * kPiece)));
    EXPECT_EQ(digests.Digest(), Sha256(all));
}

TEST(PieceDigestsTest, TheFirstPieceThatDiffersIsFound)
{
    PieceDigests one;
    PieceDigests other;
    one.Add(Bytes(kPiece));
    other.Add(Bytes(kPiece));
    EXPECT_FALSE(FirstDifference(one, other));
    one.Add(Bytes(2 * kPiece));
    EXPECT_FALSE(FirstDifference(one, other)); // the other one isn't there yet
    other.Add(Bytes(kPiece - 1));
    other.Add(Bytes(1, std::byte {8}));
    EXPECT_EQ(FirstDifference(one, other), 1U);
}

} // namespace velmora::terminal
