// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/WriteJob.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "drive/SectorSize.h"
#include "drives/DriveSpeeds.h"
#include "drives/Formatting.h"
#include "drives/GrabbedDrive.h"
#include "drives/Messages.h"
#include "drives/StepWatch.h"
#include "drives/StreamSource.h"

#include <libburn/libburn.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <thread>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFastestRead = 0;

using drive::WriteAction;
using drive::WriteProgress;

template <auto Free> struct FreeBy {
    template <class Object> void operator()(Object* object) const { Free(object); }
};
using DiscOwner = std::unique_ptr<burn::burn_disc, FreeBy<burn::burn_disc_free>>;
using SessionOwner = std::unique_ptr<burn::burn_session, FreeBy<burn::burn_session_free>>;
using TrackOwner = std::unique_ptr<burn::burn_track, FreeBy<burn::burn_track_free>>;
using OptionsOwner = std::unique_ptr<burn::burn_write_opts, FreeBy<burn::burn_write_opts_free>>;
using SourceOwner = std::unique_ptr<burn::burn_source, FreeBy<burn::burn_source_free>>;

// One session of one track, as the library describes a recording.
struct Layout {
    Layout(StreamSource& stream, qint64 sectors, int zerosBehind)
    {
        constexpr qint64 kMostBuffered = 8192; // sectors: 16 MiB
        constexpr qint64 kFewest = 32;
        const auto chunks = static_cast<int>(std::clamp(sectors, kFewest, kMostBuffered));
        const SourceOwner plain(stream.Make());
        buffer.reset(
            burn::burn_fifo_source_new(plain.get(), drive::kSectorBytes, chunks, kNoFlags));
        if (!buffer) {
            throw drive::PublishedError(drive::hresult::kFail);
        }
        // The track holds only the image: nothing before it, and after it only what the track
        // lacks, and the padding of its last sector.
        constexpr int kZerosBefore = 0; // bytes
        constexpr int kFillLastSector = 1;
        burn::burn_track_define_data(
            track.get(), kZerosBefore, zerosBehind, kFillLastSector, BURN_MODE1);
        const bool joined
            = burn::burn_track_set_source(track.get(), buffer.get()) == burn::BURN_SOURCE_OK
            && burn::burn_session_add_track(session.get(), track.get(), BURN_POS_END) != 0
            && burn::burn_disc_add_session(disc.get(), session.get(), BURN_POS_END) != 0;
        if (!joined) {
            throw drive::PublishedError(drive::hresult::kFail);
        }
    }

    DiscOwner disc {burn::burn_disc_create()};
    SessionOwner session {burn::burn_session_create()};
    TrackOwner track {burn::burn_track_create()};
    SourceOwner buffer;
};

/// Bytes that a recording lacks to be a track: a CD's lasts four seconds at least, which the
/// library announces at the session's start, but it doesn't pad the track itself.
int LackOfTrack(burn::burn_drive* drive, qint64 sectors)
{
    const bool isCd = drive::FamilyOfProfile(ProfileOf(drive)) == drive::DiscFamily::Cd;
    const qint64 lack = isCd ? std::max<qint64>(0, drive::kShortestCdTrack - sectors) : 0;
    return static_cast<int>(lack * drive::kSectorBytes);
}

Step StepOf(burn::burn_drive_status status, WriteAction action)
{
    if (status == burn::BURN_DRIVE_FORMATTING) {
        return Step::Formatting;
    }
    return action < WriteAction::Finalization ? Step::Writing : Step::Closing;
}

class Job {
public:
    Job(burn::burn_drive* drive,
        const drive::WriteOrder& order,
        WriteBoard& board,
        StepWatch& watch)
        : drive_(drive)
        , order_(order)
        , board_(board)
        , watch_(watch)
        , stream_(order, drive)
    {
    }

    void Run()
    {
        progress_ = board_.Get();
        FormatFirst();
        CheckDisc();
        const std::vector<WriteSpeed> speeds = WriteSpeedsOf(drive_);
        burn::burn_drive_set_speed(drive_, kFastestRead, KilobytesNotAbove(speeds, order_.speed));
        Layout layout(stream_, order_.sectors, LackOfTrack(drive_, order_.sectors));
        const OptionsOwner options(burn::burn_write_opts_new(drive_));
        Prepare(layout, options.get());
        if (board_.Stops()) {
            throw drive::PublishedError(drive::hresult::kCancelled);
        }
        watch_.Enter(Step::Writing);
        burn::burn_disc_write(options.get(), layout.disc.get());
        Follow(layout);
        Judge();
    }

private:
    void FormatFirst();
    void CheckDisc();
    void Prepare(Layout& layout, burn::burn_write_opts* options);
    void Follow(const Layout& layout);
    qint64 CountSectors(const Layout& layout);
    void Look(
        const Layout& layout, burn::burn_drive_status status, const burn::burn_progress& seen);
    void LookAtEnd(const Layout& layout);
    void Reach(WriteAction step, qint64 written);
    WriteAction ActionOf(
        burn::burn_drive_status status, const burn::burn_progress& seen, qint64 written) const;
    void Watch(burn::burn_drive_status status);
    void Judge();

    burn::burn_drive* drive_;
    const drive::WriteOrder& order_;
    WriteBoard& board_;
    StepWatch& watch_;
    StreamSource stream_;
    Messages messages_;
    WriteProgress progress_;
    WriteAction step_ = WriteAction::ValidatingMedia; // of the library
    bool canStayOpen_ = false;
    bool cancelled_ = false;
    burn::burn_drive_status seenStatus_ = burn::BURN_DRIVE_IDLE;
    qint64 seenSector_ = 0;
};

void Job::FormatFirst()
{
    if (!NeedsFormat(drive_)) {
        return;
    }
    progress_.action = WriteAction::FormattingMedia;
    board_.Put(progress_);
    watch_.Enter(Step::Formatting);
    FormatDisc(
        drive_, Certification::No, [](int /*done*/) {}, watch_);
    watch_.Enter(Step::Taking);
    if (board_.Stops()) {
        throw drive::PublishedError(drive::hresult::kCancelled);
    }
}

void Job::CheckDisc()
{
    const drive::DiscInfo disc = LookAtDisc(drive_);
    switch (disc.state) {
    case drive::DiscState::None:
        throw drive::PublishedError(drive::hresult::kNoMedia);
    case drive::DiscState::Unsupported:
        throw drive::PublishedError(drive::hresult::kMediaNotSupported);
    case drive::DiscState::Closed:
        throw drive::PublishedError(drive::hresult::kInvalidMediaState);
    default:
        break;
    }
    if (disc.damaged) {
        // Without an address to write at the library would still write, to an arbitrary place.
        throw drive::PublishedError(drive::hresult::kInvalidMediaState,
            u"Le disque est endommagé et ne peut plus être gravé : prenez-en un autre."_s);
    }
    if (disc.lastSessionOpen) {
        throw drive::PublishedError(drive::hresult::kInvalidMediaState,
            u"Le disque porte une gravure interrompue : prenez-en un autre."_s);
    }
    if (order_.sectors <= 0) {
        throw drive::PublishedError(drive::hresult::kStreamNotSupported);
    }
    if (order_.sectors > disc.freeSectors) {
        throw drive::PublishedError(drive::hresult::kStreamTooLarge);
    }
    progress_.startSector = disc.nextWritable;
    canStayOpen_ = disc.canStayOpen;
}

void Job::Prepare(Layout& layout, burn::burn_write_opts* options)
{
    std::array<char, BURN_REASONS_LEN> reasons {};
    constexpr int kYes = 1;
    constexpr int kNo = 0;
    const bool staysOpen = !order_.closeDisc && canStayOpen_;
    burn::burn_write_opts_set_multi(options, staysOpen ? kYes : kNo);
    burn::burn_write_opts_set_underrun_proof(options, kYes);
    burn::burn_write_opts_set_perform_opc(options, kNo);
    const burn::burn_write_types type = burn::burn_write_opts_auto_write_type(
        options, layout.disc.get(), reasons.data(), kNoFlags);
    const bool fits = type != burn::BURN_WRITE_NONE
        && burn::burn_precheck_write(options, layout.disc.get(), reasons.data(), kNoFlags) == 1;
    messages_.Collect();
    if (!fits) {
        const qint32 cause = messages_.Cause(Task::Write);
        throw drive::PublishedError(
            cause == drive::hresult::kFail ? drive::hresult::kInvalidMediaState : cause);
    }
}

void Job::Follow(const Layout& layout)
{
    constexpr std::chrono::milliseconds kStep {40};
    while (true) {
        burn::burn_progress seen {};
        const burn::burn_drive_status status = burn::burn_drive_get_status(drive_, &seen);
        messages_.Collect();
        if (status == burn::BURN_DRIVE_IDLE) {
            LookAtEnd(layout);
            return;
        }
        Look(layout, status, seen);
        Watch(status);
        // From then on a cancel would leave the session half ended.
        const bool isOpen = step_ < WriteAction::Finalization;
        if (board_.Stops() && isOpen && !cancelled_) {
            burn::burn_drive_cancel(drive_);
            cancelled_ = true;
        }
        std::this_thread::sleep_for(kStep);
    }
}

WriteAction Job::ActionOf(
    burn::burn_drive_status status, const burn::burn_progress& seen, qint64 written) const
{
    switch (status) {
    case burn::BURN_DRIVE_SPAWNING: // the next step may be formatting
        return WriteAction::ValidatingMedia;
    case burn::BURN_DRIVE_FORMATTING:
        return WriteAction::FormattingMedia;
    case burn::BURN_DRIVE_CLOSING_TRACK:
    case burn::BURN_DRIVE_CLOSING_SESSION:
    case burn::BURN_DRIVE_WRITING_LEADOUT:
        return WriteAction::Finalization;
    case burn::BURN_DRIVE_WRITING:
        break;
    default:
        return WriteAction::InitializingHardware;
    }
    // Before and after the track the library counts no sectors.
    if (written >= order_.sectors || (seen.sectors == 0 && written > 0)) {
        return WriteAction::Finalization;
    }
    if (written > 0) {
        return WriteAction::WritingData;
    }
    // A drive calibrates its laser inside the first command that writes.
    return seen.sectors > 0 ? WriteAction::CalibratingPower : WriteAction::InitializingHardware;
}

/// @return how many are written, including the padding
qint64 Job::CountSectors(const Layout& layout)
{
    off_t read = 0;
    off_t written = 0;
    burn::burn_track_get_counters(layout.track.get(), &read, &written);
    const auto limited = [this](qint64 sectors) {
        return progress_.startSector + std::clamp<qint64>(sectors, 0, order_.sectors);
    };
    progress_.lastReadSector = limited(read / drive::kSectorBytes);
    progress_.lastWrittenSector = limited(written / drive::kSectorBytes);
    board_.Put(progress_);
    return written / drive::kSectorBytes;
}

void Job::Look(
    const Layout& layout, burn::burn_drive_status status, const burn::burn_progress& seen)
{
    const qint64 written = CountSectors(layout);
    Reach(ActionOf(status, seen, written), written);
    int size = 0;
    int room = 0;
    char* text = nullptr;
    burn::burn_fifo_inquire_status(layout.buffer.get(), &size, &room, &text);
    progress_.bufferBytes = size;
    progress_.bufferUsedBytes = size - room;
    board_.Put(progress_);
}

/// A write may begin and fail between two looks: what it wrote shows that it had begun.
void Job::LookAtEnd(const Layout& layout)
{
    const qint64 written = CountSectors(layout);
    Reach(written > 0 ? WriteAction::WritingData : step_, written);
    board_.Put(progress_);
}

/// The library ends the session of a failed write, too: that finalizes no recording.
void Job::Reach(WriteAction step, qint64 written)
{
    step_ = std::max(step_, step);
    const WriteAction last = written >= order_.sectors ? WriteAction::Finalization
        : written > 0                                  ? WriteAction::WritingData
                                                       : WriteAction::CalibratingPower;
    progress_.action = std::max(progress_.action, std::min(step_, last));
}

// A write makes progress when its sectors do, or when it waits for its source.
void Job::Watch(burn::burn_drive_status status)
{
    watch_.Enter(StepOf(status, step_));
    const bool starves = progress_.bufferUsedBytes < drive::kSectorBytes && stream_.IsAsked();
    if (status != seenStatus_ || progress_.lastWrittenSector != seenSector_ || starves) {
        seenStatus_ = status;
        seenSector_ = progress_.lastWrittenSector;
        watch_.Move();
    }
}

void Job::Judge()
{
    messages_.Collect();
    if (const std::exception_ptr failure = stream_.Failure()) {
        std::rethrow_exception(failure);
    }
    // The library reports success for a burn that lost data on the way, so it is queried in three
    // ways.
    const bool good = burn::burn_drive_wrote_well(drive_) == 1
        && stream_.Delivered() == order_.sectors && !messages_.Failed();
    if (cancelled_) {
        throw drive::PublishedError(drive::hresult::kCancelled);
    }
    if (good) {
        return;
    }
    const qint32 cause = messages_.Cause(Task::Write);
    const std::optional<Sense> sense = messages_.SenseOfCause();
    throw drive::PublishedError(
        cause == drive::hresult::kFail ? drive::hresult::kWriteError : cause,
        {},
        sense ? TextOf(*sense) : QString());
}

} // namespace

void WriteRecording(
    burn::burn_drive* drive, const drive::WriteOrder& order, WriteBoard& board, StepWatch& watch)
{
    Job(drive, order, board, watch).Run();
}

} // namespace velmora::drives
