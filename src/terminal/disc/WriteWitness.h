// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/base/MasteringContext.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace velmora::terminal {

/// What a drive was given to write, and how far it came.
struct WitnessedRecording {
    qint64 sectors = 0;
    qint64 writtenSectors = 0; ///< as far as the drive reported it
    drive::DiscInfo disc {};   ///< as it was seen before
    /// SHA-256 of what was written, 32 bytes; empty until the write is over.
    QByteArray sha256 {};
};

/// Sees what the drives really do. A run shows the user what it was told; the witness knows how
/// much a drive has written, and what was on its disc.
class WriteWitness {
public:
    using Listener = std::function<void(const drive::WriteProgress&)>;

    /// Called with each report of a write, before the run is.
    void OnProgress(Listener listener) { listener_ = std::move(listener); }

    /// The disc as last examined; nothing if that failed.
    const std::optional<drive::DiscInfo>& LastLook() const { return look_; }
    /// The last write; nothing when no drive was told to write.
    const WitnessedRecording* LastRecording() const { return recording_.get(); }
    /// Forgets what was written before.
    void ForgetRecording() { recording_.reset(); }
    /// Called with the digest of what the last write wrote.
    void HearDigest(const QByteArray& sha256);

    /// Asked before an erase begins; false lets no drive begin it (C0AA0002). Empty: always true.
    void AllowErase(std::function<bool()> isAllowed) { isEraseAllowed_ = std::move(isAllowed); }

    void Write(
        drive::Drive& drive, const drive::WriteOrder& order, const drive::WriteReport& report);
    void Erase(drive::Drive& drive, bool full, const drive::EraseReport& report);
    drive::DiscInfo Examine(drive::Drive& drive);

private:
    bool Hear(const drive::WriteProgress& progress, const drive::WriteReport& report);

    Listener listener_;
    std::optional<drive::DiscInfo> look_;
    std::unique_ptr<WitnessedRecording> recording_;
    std::function<bool()> isEraseAllowed_;
};

/// The same drives, watched by the witness; it must outlive them.
mastering::DriveSources Witnessed(const mastering::DriveSources& sources, WriteWitness& witness);

} // namespace velmora::terminal
