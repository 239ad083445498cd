// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/platform/mastering/DataBench.h"

namespace velmora::test {

/// Writes that are compared, on a disc to which something happens before.
class CompareBench : public DataBench {
protected:
    CompareBench()
    {
        comparesAfterWrite = true;
        drive->disc = DiscOf(27, drive::DiscState::Blank);
        drive->facts.canLoadMedia = true;
        writer->SetRecorder(Bound()); // which knows of the tray
    }

    /// Writes this many sectors; between the write and the comparison something happens to the
    /// disc.
    const imapi::DiscComparison& Compare(qint64 sectors, const std::function<void()>& between = {})
    {
        drive->reports = {{.action = drive::WriteAction::WritingData,
            .startSector = kFirst,
            .sectorCount = sectors}};
        writer->OnUpdate([=, this](const imapi::IDiscFormat2DataEventArgs& event) {
            if (event.CurrentAction == drive::WriteAction::Verifying && event.LastReadLba == kFirst
                && between) {
                between();
            }
        });
        number = NumberOfWrite(Sectors(static_cast<quint64>(sectors)));
        return writer->Comparison();
    }
    /// Flips one bit of a byte of the recording on the disc.
    void Flip(qint64 sector, std::size_t byte)
    {
        drive->written[static_cast<std::size_t>(sector) * 2048 + byte] ^= std::byte {0x10};
    }

    static constexpr qint64 kFirst = 1000;
    static constexpr qint64 kPiece = 512; // sectors that one digest covers
    qint32 number = 0;                    // of the last write
};

} // namespace velmora::test
