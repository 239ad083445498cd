// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>
#include <QtGlobal>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace velmora::terminal {

// What a job reports by its meaning: to another program, or to a user who wants few words.
// Everything is also reported in lines, unless a log has done so already. Texts are French, UTF-8
// and harmless to a terminal; paths are native, of any bytes.

/// A step of a job that takes a while.
enum class JobPhase : std::uint8_t {
    ReadingFolder,
    PlanningImage,
    WritingImage,
    Working, ///< discs are examined, the image of a disc is laid out
    Preparing,
    Formatting,
    Calibrating,
    Writing,
    Finalizing,
    Comparing,
    Erasing,
    Checking,
};

enum class Unit : std::uint8_t { Entries, Bytes, Seconds };

/// How much of a phase is done.
struct Amount {
    Unit unit = Unit::Bytes;
    std::uint64_t done = 0;
    std::uint64_t total = 0;            ///< 0 = not known
    std::optional<double> perSecond {}; ///< in the unit; none while unknown
    std::optional<double> secondsLeft {};
};

/// A phase goes on; one that begins may have no amount yet.
struct PhaseProgress {
    JobPhase phase;
    std::optional<Amount> amount {};
};

enum class RemarkKind : std::uint8_t {
    // how an image or a disc differs from its folder, and what may surprise its readers
    ChangedName,
    NameHazard, ///< kept, but some readers lose it
    LinkLeadingOut,
    ChangedSource, ///< a file that changed while it was read
    LeftOut,       ///< nowhere in the image
    PartlyHeld,    ///< missing in one of its file systems
    HiddenEntry,   ///< not included, as it is hidden
    OtherSums,     ///< the list of sums is the folder's own
    // of a disc
    RewritableTooSmall, ///< a rewritable disc of that kind holds less
    RefusedDisc,        ///< the disc in the drive isn't written to
    NotCompared,        ///< it is unknown whether the disc is good
    HurtFile,           ///< a file of the disc isn't as written
    OtherBytes,         ///< a copy isn't the same as the first one
    AfterWrite,         ///< the disc is written, but something else failed
    // of a check
    NothingToCompare,
    Undescribed, ///< the disc has files without a description
    // of any job
    Message, ///< a box that only informs
    Stopped, ///< on request; what was left
};

/// Something that the job's user may want to know.
struct JobRemark {
    RemarkKind kind;
    std::string path {};       ///< that it is about; empty = none
    std::string fileSystem {}; ///< "ISO 9660", "Joliet" or "UDF"; empty = all or none
    std::string recorded {};   ///< the name that a changed one has there
    std::string target {};     ///< what a link says, of any bytes
    std::string text;          ///< all of it, in words
};

/// Whether this remark keeps a job from ending with ExitCode::Done.
bool ChangesExitCode(RemarkKind kind);

/// What went wrong.
struct Failure {
    std::string text; ///< a sentence, without a leading word like "error"
    std::optional<qint32> number {};
};

/// How a job ended, as far as the exit code doesn't tell it.
enum class JobEnding : std::uint8_t {
    AsItsExitCode,
    Refused, ///< the disc or the job
    GivenUp, ///< by the person
};

/// The result of one disc, image or check.
struct JobReport {
    std::function<QJsonObject()> object; ///< makes the full report on demand
    JobEnding ending = JobEnding::AsItsExitCode;
};

using JobEvent = std::variant<PhaseProgress, JobRemark, Failure, JobReport>;

} // namespace velmora::terminal
