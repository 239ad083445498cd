// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "digest/Sha256.h"
#include "drive/Drive.h"
#include "mastering/comparison/FileDigests.h"
#include "mastering/comparison/PieceDigests.h"

#include <utility>
#include <vector>

namespace velmora::mastering {

/// What a drive takes during a write, for comparing the disc with it afterwards. The digests are
/// made as the bytes go by, while they are still in the processor's cache: another thread would
/// spend more on fetching them than it saves.
class WrittenTrack {
public:
    /// @param files  those in it, in the order of their bytes
    explicit WrittenTrack(qint64 sectors, std::vector<imapi::FileExtent> files = {})
        : sectors_(sectors)
        , files_(std::move(files))
    {
    }

    /// The same source, with every byte digested on its way. The track must outlive it.
    drive::WriteSource Watched(drive::WriteSource source)
    {
        return [this, source = std::move(source)](std::span<std::byte> out) {
            source(out);
            pieces_.Add(out);
            files_.Add(out);
            whole_.Add(out);
        };
    }

    /// Learns from the drive's reports where the drive writes.
    void Hear(const drive::WriteProgress& progress)
    {
        if (progress.action == drive::WriteAction::WritingData) {
            firstSector_ = progress.startSector;
        }
    }

    qint64 FirstSector() const { return firstSector_; } ///< on the disc
    qint64 Sectors() const { return sectors_; }

    // Once the write is over:
    const std::vector<PieceDigests::Digest>& Pieces() { return pieces_.Finish(); }
    const FileDigests& Files() const { return files_; }
    const QByteArray& Sha256()
    {
        if (sha256_.isEmpty()) {
            const digest::Sha256Value value = whole_.Finish();
            sha256_ = {
                reinterpret_cast<const char*>(value.data()), static_cast<qsizetype>(value.size())};
        }
        return sha256_;
    }

private:
    qint64 sectors_;
    qint64 firstSector_ = 0;
    PieceDigests pieces_;
    FileDigests files_;
    digest::Sha256 whole_;
    QByteArray sha256_;
};

} // namespace velmora::mastering
