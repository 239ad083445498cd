// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/WriteTerms.h"

#include "imapi/DiscState.h"
#include "imapi/MediaProfiles.h"

#include <algorithm>
#include <limits>

namespace velmora::imapi {

namespace {

template <class Number> qint32 Clamped(Number value)
{
    constexpr qint32 kMost = std::numeric_limits<qint32>::max();
    return static_cast<qint32>(std::clamp<Number>(value, 0, static_cast<Number>(kMost)));
}

/// The number that refuses a disc for what is on it; 0 for none.
qint32 RefusalOfContent(const DiscInfo& disc, Overwrite overwrite)
{
    const bool isErasable = IsErasable(MediaTypeOf(disc));
    switch (disc.state) {
    case DiscState::Closed:
        return isErasable ? hresult::kMediaNotBlank : hresult::kInvalidMediaState;
    case DiscState::Appendable:
        if (isErasable) { // such a disc is written from its first sector
            return hresult::kMediaNotBlank;
        }
        // An image is made for the place where it begins, which no rest of a session is.
        return disc.lastSessionOpen || disc.damaged ? hresult::kInvalidMediaState : hresult::kOk;
    case DiscState::Overwritable:
        return disc.heuristicallyBlank || overwrite == Overwrite::Yes ? hresult::kOk
                                                                      : hresult::kMediaNotBlank;
    default:
        return hresult::kOk;
    }
}

qint32 RefusalOf(const DiscInfo& disc, qint64 sectors, Overwrite overwrite)
{
    if (disc.state == DiscState::None) {
        return hresult::kNoMedia;
    }
    if (!IsRecordableDisc(disc)) {
        return hresult::kMediaNotSupported;
    }
    if (disc.writeProtected) {
        return hresult::kWriteProtected;
    }
    if (const qint32 refusal = RefusalOfContent(disc, overwrite)) {
        return refusal;
    }
    return sectors > RoomOn(disc) ? hresult::kStreamTooLarge : hresult::kOk;
}

} // namespace

void RequireWritable(const DiscInfo& disc, qint64 sectors, Overwrite overwrite)
{
    if (const qint32 refusal = RefusalOf(disc, sectors, overwrite)) {
        throw PublishedError(refusal);
    }
}

bool MustClose(const DiscInfo& disc, qint64 sectors, bool isWanted)
{
    constexpr qint64 kFewest = 50; // one part in so many
    if (disc.state == DiscState::Overwritable) {
        return false;
    }
    const bool isNearlyFull = (disc.freeSectors - sectors) * kFewest <= disc.totalSectors;
    return isWanted || !disc.canStayOpen || isNearlyFull;
}

IDiscFormat2DataEventArgs EventArgsOf(const WriteProgress& progress, double elapsed)
{
    IDiscFormat2DataEventArgs event;
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
    if (progress.action == WriteAction::WritingData && written > 0) {
        const double share
            = static_cast<double>(progress.sectorCount) / static_cast<double>(written);
        event.TotalTime = Clamped(elapsed * share);
        event.RemainingTime = Clamped(event.TotalTime - event.ElapsedTime);
    }
    return event;
}

void ReadAll(IStream& stream, std::span<std::byte> out)
{
    while (!out.empty()) {
        const std::size_t read = stream.Read(out);
        if (read == 0) {
            throw PublishedError(hresult::kStreamReadFault);
        }
        out = out.subspan(read);
    }
}

} // namespace velmora::imapi
