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

// What a job tells by its meaning: to another program, or to a person who wants few words. All of
// it is also said in lines, except where a log has told it already. Texts are French, UTF-8 and
// harmless to a terminal; paths are native, of any bytes.

/// A step of a job that takes a while.
enum class JobPhase : std::uint8_t {
    ReadingFolder,
    PlanningImage,
    WritingImage,
    Working, ///< discs are looked at, the image of a disc is laid out
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
    std::optional<double> perSecond {}; ///< in the unit; none while nobody can say
    std::optional<double> secondsLeft {};
};

/// A phase goes on; one that begins may have no amount yet.
struct PhaseProgress {
    JobPhase phase;
    std::optional<Amount> amount {};
};

enum class RemarkKind : std::uint8_t {
    // what an image or a disc has otherwise than its folder, and what may surprise its readers
    ChangedName,
    NameHazard, ///< kept, but some readers lose it
    LinkLeadingOut,
    ChangedSource, ///< a file that changed while it was read
    LeftOut,       ///< nowhere in the image
    PartlyHeld,    ///< missing in one of its file systems
    HiddenEntry,   ///< not taken, as it is hidden
    OtherSums,     ///< the list of sums is the folder's own one
    // of a disc
    RewritableTooSmall, ///< a disc of that kind that can be rewritten holds less
    RefusedDisc,        ///< the disc in the drive isn't written to
    NotCompared,        ///< nobody knows whether the disc is good
    HurtFile,           ///< a file of the disc isn't as written
    OtherBytes,         ///< a copy isn't the same as the first one
    AfterWrite,         ///< the disc is written, but something beside that failed
    // of a check
    NothingToCompare,
    Undescribed, ///< the disc has files of which nothing is known
    // of any job
    Message, ///< a box that only informs
    Stopped, ///< on request; what was left
};

/// Something that whoever started the job may want to know.
struct JobRemark {
    RemarkKind kind;
    std::string path {};       ///< that it is about; empty = none
    std::string fileSystem {}; ///< "ISO 9660", "Joliet" or "UDF"; empty = all or none
    std::string recorded {};   ///< the name that a changed one has there
    std::string target {};     ///< what a link says, of any bytes
    std::string text;          ///< all of it, in words
};

/// Whether a job of which this is remarked doesn't end with ExitCode::Done.
bool ChangesExitCode(RemarkKind kind);

/// What went wrong.
struct Failure {
    std::string text; ///< a sentence, without a word like "error" in front
    std::optional<qint32> number {};
};

/// What came of one disc, image or check.
struct JobReport {
    std::function<QJsonObject()> object; ///< makes the whole report, for whoever takes it
};

using JobEvent = std::variant<PhaseProgress, JobRemark, Failure, JobReport>;

} // namespace velmora::terminal
