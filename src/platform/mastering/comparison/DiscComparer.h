// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/DiscComparison.h"
#include "imapi/IStream.h"
#include "mastering/comparison/RecordingReader.h"
#include "mastering/comparison/WrittenTrack.h"

#include <QString>

#include <span>
#include <vector>

namespace velmora::mastering {

/// Compares a disc with what was written to it, by the digests that were made meanwhile. If a piece
/// isn't as written, its bytes are generated again, so that each damaged sector is reported, and
/// the files in it.
class DiscComparer {
public:
    /// @param source  what was written; read again where the disc is damaged
    DiscComparer(WrittenTrack& track, imapi::IStream& source, RecordingReader& reader);

    /// Reads the whole recording. Nothing is raised: the comparison says what made it impossible.
    imapi::DiscComparison Run();

private:
    enum class State : quint8 { Same, Different, Unreadable };
    struct Finding {
        State state = State::Same;
        std::size_t firstByte = 0; // of the sector, that is different
    };
    using Findings = std::vector<Finding>; // a sector each

    void CompareAll();
    bool IsOver();
    void CompareStep();
    void Examine(qint64 piece, std::span<std::byte> read, bool isRead);
    std::vector<std::byte> MadeAnew(qint64 piece);
    bool IsKnownAsOther();
    bool IsOtherDisc();
    void ForgetFindings(const QString& cause);
    void ReadAgain(qint64 first, std::span<std::byte> out, Findings& findings);
    void Tell(qint64 first, const Findings& findings);
    void TellPlace(qint64 sector, bool isUnreadable);
    void NameFile(qint64 sector, std::size_t firstByte);
    qint64 SectorsOf(qint64 piece) const;
    const PieceDigests::Digest& DigestOf(qint64 piece) const;
    void MarkDifferences(qint64 piece, std::span<const std::byte> read, Findings& findings);
    imapi::ComparisonEnd End() const;

    WrittenTrack& track_;
    const std::vector<PieceDigests::Digest>& pieces_;
    imapi::IStream& source_;
    RecordingReader& reader_;
    imapi::DiscComparison result_;
    qint64 done_ = 0; // sectors
    int hurtPieces_ = 0;
    text::DiscPath lastHurtFile_;
    std::vector<std::byte> read_;
};

} // namespace velmora::mastering
