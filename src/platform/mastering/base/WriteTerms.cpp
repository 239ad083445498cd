// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/base/WriteTerms.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "mastering/base/DiscState.h"

#include <algorithm>
#include <limits>

namespace velmora::mastering {

namespace {

template <class Number> qint32 Clamped(Number value)
{
    constexpr qint32 kMost = std::numeric_limits<qint32>::max();
    return static_cast<qint32>(std::clamp<Number>(value, 0, static_cast<Number>(kMost)));
}

/// The error number that refuses a disc for its contents; 0 for none.
qint32 RefusalOfContent(const drive::DiscInfo& disc, Overwrite overwrite)
{
    const bool isErasable = drive::IsErasable(MediaTypeOf(disc));
    switch (disc.state) {
    case drive::DiscState::Closed:
        return isErasable ? drive::hresult::kMediaNotBlank : drive::hresult::kInvalidMediaState;
    case drive::DiscState::Appendable:
        if (isErasable) { // such a disc is written from its first sector
            return drive::hresult::kMediaNotBlank;
        }
        // An image is made for its start address, which the rest of a session isn't.
        return disc.lastSessionOpen || disc.damaged ? drive::hresult::kInvalidMediaState
                                                    : drive::hresult::kOk;
    case drive::DiscState::Overwritable:
        return disc.heuristicallyBlank || overwrite == Overwrite::Yes
            ? drive::hresult::kOk
            : drive::hresult::kMediaNotBlank;
    default:
        return drive::hresult::kOk;
    }
}

qint32 RefusalOf(const drive::DiscInfo& disc, qint64 sectors, Overwrite overwrite)
{
    if (disc.state == drive::DiscState::None) {
        return drive::hresult::kNoMedia;
    }
    if (!IsRecordableDisc(disc)) {
        return drive::hresult::kMediaNotSupported;
    }
    if (disc.writeProtected) {
        return drive::hresult::kWriteProtected;
    }
    if (const qint32 refusal = RefusalOfContent(disc, overwrite)) {
        return refusal;
    }
    return sectors > RoomOn(disc) ? drive::hresult::kStreamTooLarge : drive::hresult::kOk;
}

} // namespace

void RequireWritable(const drive::DiscInfo& disc, qint64 sectors, Overwrite overwrite)
{
    if (const qint32 refusal = RefusalOf(disc, sectors, overwrite)) {
        throw drive::PublishedError(refusal);
    }
}

bool MustClose(const drive::DiscInfo& disc, qint64 sectors, bool isWanted)
{
    constexpr qint64 kFewest = 50; // one part in this many
    if (disc.state == drive::DiscState::Overwritable) {
        return false;
    }
    const bool isNearlyFull = (disc.freeSectors - sectors) * kFewest <= disc.totalSectors;
    return isWanted || !disc.canStayOpen || isNearlyFull;
}

imapi::IDiscFormat2DataEventArgs EventArgsOf(const drive::WriteProgress& progress, double elapsed)
{
    imapi::IDiscFormat2DataEventArgs event;
    event.CurrentAction = progress.action;
    event.ElapsedTime = Clamped(elapsed);
    event.StartLba = Clamped(progress.startSector);
    event.SectorCount = Clamped(progress.sectorCount);
    event.LastReadLba = Clamped(progress.lastReadSector);
    event.LastWrittenLba = Clamped(progress.lastWrittenSector);
    event.TotalSystemBuffer = Clamped(progress.bufferBytes);
    event.UsedSystemBuffer = Clamped(progress.bufferUsedBytes);
    event.FreeSystemBuffer = Clamped(progress.bufferBytes - progress.bufferUsedBytes);
    const qint64 written = progress.lastWrittenSector - progress.startSector;
    if (progress.action == drive::WriteAction::WritingData && written > 0) {
        const double share
            = static_cast<double>(progress.sectorCount) / static_cast<double>(written);
        event.TotalTime = Clamped(elapsed * share);
        event.RemainingTime = Clamped(event.TotalTime - event.ElapsedTime);
    }
    return event;
}

void ReadAll(imapi::IStream& stream, std::span<std::byte> out)
{
    while (!out.empty()) {
        const std::size_t read = stream.Read(out);
        if (read == 0) {
            throw drive::PublishedError(drive::hresult::kStreamReadFault);
        }
        out = out.subspan(read);
    }
}

} // namespace velmora::mastering
