// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/comparison/RecordingReader.h"

#include "drive/PublishedCodes.h"
#include "drive/Readiness.h"
#include "drive/SectorSize.h"
#include "runtime/ResumeNext.h"

#include <algorithm>
#include <utility>

namespace velmora::mastering {

namespace {

constexpr std::size_t kFewestAtOnce = 32; // an error correction block of Blu-ray, two of DVD
constexpr std::size_t kFirstAtOnce = 256; // while it isn't known how fast the drive reads
constexpr std::size_t kMostAtOnce = 2048;

/// As far as examining them tells.
bool IsSameDisc(const drive::DiscInfo& one, const drive::DiscInfo& other)
{
    return one.state == other.state && one.profile == other.profile
        && one.totalSectors == other.totalSectors && one.nextWritable == other.nextWritable;
}

} // namespace

RecordingReader::RecordingReader(
    drive::BoundDrive& drive, runtime::Clock& clock, GoesOn goesOn, WhenUnreadable whenUnreadable)
    : drive_(drive)
    , clock_(clock)
    , goesOn_(std::move(goesOn))
    , sectorsAtOnce_(kFirstAtOnce)
    , isTakenAnew_(whenUnreadable == WhenUnreadable::GoOn)
{
}

bool RecordingReader::GoOn(qint64 behindLast)
{
    behindLast_ = behindLast;
    isStopped_ = isStopped_ || !goesOn_(behindLast);
    return !isStopped_;
}

void RecordingReader::TakeDisc()
{
    constexpr int kMostSeconds = 60;
    if (!GoOn(behindLast_)) {
        throw drive::PublishedError(drive::hresult::kCancelled);
    }
    const drive::DiscInfo disc = drive::AnswerOnceReady([this] { return drive_.LookAnew(); },
        kMostSeconds,
        clock_,
        [this](int) { return GoOn(behindLast_); });
    if (disc.state == drive::DiscState::None) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    if (hasRead_ && disc_ && !IsSameDisc(disc, *disc_)) {
        throw drive::PublishedError(drive::hresult::kNoMedia,
            QStringLiteral("Le disque du lecteur a été échangé contre un autre."));
    }
    disc_ = disc;
}

ReadEnd RecordingReader::Read(qint64 firstSector, std::span<std::byte> out)
{
    while (!out.empty()) {
        const auto step
            = out.first(std::min<std::size_t>(out.size(), sectorsAtOnce_ * drive::kSectorBytes));
        if (!GoOn(firstSector)) {
            return ReadEnd::Stopped;
        }
        if (!ReadStep(firstSector, step)) {
            return isStopped_ ? ReadEnd::Stopped : ReadEnd::Unreadable;
        }
        firstSector += static_cast<qint64>(step.size() / drive::kSectorBytes);
        out = out.subspan(step.size());
    }
    return GoOn(firstSector) ? ReadEnd::Read : ReadEnd::Stopped;
}

void RecordingReader::SetSpeed(drive::ReadSpeed speed)
{
    runtime::ResumeNext([&] { drive_.Hardware()->SetReadSpeed(speed); });
}

/// @return false for sectors that can't be read, and for a stop
bool RecordingReader::ReadStep(qint64 firstSector, std::span<std::byte> out)
{
    const double begun = clock_.Timer();
    try {
        drive_.Hardware()->Read(firstSector, out);
    } catch (const runtime::RuntimeError& failure) {
        secondsLost_ += clock_.Timer() - begun;
        TakeDisc(); // a missing drive or disc has its own message
        return TryAgain(failure) ? ReadStep(firstSector, out) : false;
    }
    hasRead_ = true;
    wasWaitedFor_ = false;
    Pace(clock_.Timer() - begun);
    return true;
}

/// After a failed read in a drive that says it is ready.
bool RecordingReader::TryAgain(const runtime::RuntimeError& failure)
{
    if (drive::IsGettingReady(failure.Number()) && !wasWaitedFor_) {
        wasWaitedFor_ = true;
        return true;
    }
    if (failure.Number() != drive::hresult::kImportReadFailure) {
        throw failure;
    }
    if (hasRead_ || isTakenAnew_) {
        whyUnreadable_ = failure.Description();
        return false;
    }
    TakeAnew(failure);
    return true;
}

/// Some drives read what they have written only after the disc was reloaded.
void RecordingReader::TakeAnew(const runtime::RuntimeError& failure)
{
    if (!drive_.Facts().canLoadMedia) {
        throw failure;
    }
    isTakenAnew_ = true;
    drive_.Hardware()->Eject();
    drive_.Hardware()->CloseTray();
    TakeDisc();
}

/// Adapts the steps to the drive's speed, so that a stop takes effect soon.
void RecordingReader::Pace(double seconds)
{
    constexpr double kLong = 0.4;
    constexpr double kShort = 0.1;
    if (seconds > kLong) {
        sectorsAtOnce_ = std::max(sectorsAtOnce_ / 2, kFewestAtOnce);
    } else if (seconds < kShort) {
        sectorsAtOnce_ = std::min(sectorsAtOnce_ * 2, kMostAtOnce);
    }
}

} // namespace velmora::mastering
