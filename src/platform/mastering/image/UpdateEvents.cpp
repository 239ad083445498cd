// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/UpdateEvents.h"

#include "image/ImagePlan.h"
#include "runtime/ResumeNext.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace velmora::mastering {

namespace {

constexpr double kSecondsBetweenEvents = 1.0 / 25;

qint32 SectorsOf(quint64 bytes)
{
    constexpr quint64 kMost = std::numeric_limits<qint32>::max();
    const quint64 whole = bytes / image::kSectorSize;
    const quint64 sectors = bytes % image::kSectorSize == 0 ? whole : whole + 1;
    return static_cast<qint32>(std::min(sectors, kMost));
}

} // namespace

UpdateEvents::UpdateEvents(const runtime::Clock& clock)
    : clock_(clock)
    , lastTold_(clock.Timer())
{
}

void UpdateEvents::SetHandler(imapi::FileSystemImageUpdate handler)
{
    handler_ = std::move(handler);
}

bool UpdateEvents::IsDue() const { return clock_.Timer() - lastTold_ >= kSecondsBetweenEvents; }

void UpdateEvents::TellListing(const Path& directory)
{
    if (handler_ && IsDue()) {
        Tell(directory(), 0, 0);
    }
}

void UpdateEvents::TellFile(const Path& file, quint64 bytes, bool isFirst, bool isLast)
{
    if (!handler_ || !(isFirst || isLast || IsDue())) {
        return;
    }
    const QString path = file();
    const qint32 sectors = SectorsOf(bytes);
    Tell(path, 0, sectors);
    if (sectors > 0 && (isLast || IsDue())) {
        Tell(path, sectors, sectors);
    }
}

void UpdateEvents::Tell(const QString& path, qint32 copiedSectors, qint32 totalSectors)
{
    runtime::ResumeNext([&] { handler_(path, copiedSectors, totalSectors); });
    lastTold_ = clock_.Timer();
}

} // namespace velmora::mastering
