// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/DiscComparison.h"
#include "imapi/EntriesLeftOut.h"
#include "imapi/IFileSystemImageResult.h"
#include "text/Paths.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace velmora::writing {

/// What a run makes.
enum class BurnTarget : qint8 { Disc, IsoFile };

/// How a run ended.
enum class RunEnding : qint8 {
    NotBegun, ///< no file was chosen; nothing was touched
    Done,     ///< what was wanted is made; any error is of what came after it
    Refused,  ///< see the refusal; the user declined to insert another disc
    GivenUp,  ///< by the user, at a question before the work or at the prompt for a disc
    Stopped,  ///< on request; a disc that was begun is unusable, unless it is written
    Failed,   ///< see the error
};

/// Why a run, or a disc, was refused.
enum class Refusal : qint8 {
    None,
    NoRecorder,    ///< none is chosen
    NothingToBurn, ///< the compilation is empty
    NoUsableDisc,  ///< the drive is empty, or its disc can't be recorded or erased
    OtherDisc,     ///< a disc of another family than the one that was promised
    NoRoom,        ///< the disc is too small
    DiscNotBlank,
};

/// What an erase left of the disc's contents.
enum class EraseExtent : qint8 {
    Untouched, ///< all of it
    Unknown,   ///< the drive began; how far it got is unknown
    Erased,    ///< nothing
};

/// The result of a run. Screens, exit codes and notices are made from it; what the run shows on its
/// way is only for display.
struct RunReport {
    RunEnding ending = RunEnding::NotBegun;
    /// Of the run, or of the last disc that was refused before the user gave up.
    Refusal refusal = Refusal::None;
    /// Of a failed run, of a drive that couldn't be queried about its disc, of a disc that the
    /// drive can't erase, or of a drive that didn't return a written disc.
    qint32 errorNumber = 0;
    QString errorText {}; ///< the error's description, French
    QString limitMet {};  ///< which limit of the program was met, and the way out; French

    BurnTarget target = BurnTarget::Disc;
    QString recorderId {};        ///< unique id of the recorder, once it is known
    text::ProgramPath isoFile {}; ///< the file that is written; empty of a disc
    quint64 writtenBytes = 0;     ///< to the file, or as the drive told them
    /// The drive took every sector of the recording, whether or not it ended it as well.
    bool tookAllSectors = false;
    /// The drive took the whole recording and says that it is done, or the file is complete. The
    /// recording may still be damaged: see the comparison.
    bool isWritten = false;
    bool isEjected = false;                    ///< the disc, after it was written
    imapi::DiscComparison comparison {};       ///< of the disc with what was written to it
    std::optional<EraseExtent> eraseExtent {}; ///< none for a run that erases nothing

    /// The image was laid out, so that everything below is known.
    bool isLaidOut = false;
    /// What the compilation has and the disc or file lacks.
    std::vector<imapi::LeftOutEntry> leftOut {};
    /// The hidden entries of the first level that are no part of the compilation.
    QList<text::ProgramPath> hiddenEntries {};
    /// Files that were rewritten or grew while they were read: the disc or file holds what was read
    /// from them.
    QList<text::ProgramPath> changedSources {};
    /// Names that a file system of the disc or file could not keep.
    std::vector<imapi::ChangedName> changedNames {};
    /// What one of its file systems lacks and another one has.
    std::vector<imapi::PartlyHeldEntry> partlyHeld {};
    /// What some readers lose.
    std::vector<imapi::NameHazard> nameHazards {};
    /// Symbolic links of the disc or file that lead out of it.
    std::vector<imapi::LinkLeadingOut> linksLeadingOut {};
    /// The requested list of the files' sums is missing: the compilation has an entry of its name.
    bool keepsOtherSums = false;
    /// What else failed, although the write succeeded, French.
    QStringList remarks {};

    /// The disc or file is complete, and not known to be damaged.
    bool IsMade() const { return isWritten && comparison.end != imapi::ComparisonEnd::Hurt; }
    /// What was wanted is made, but the error says what failed after that: the drive didn't return
    /// the disc, or wasn't released.
    bool FailedAfterwards() const
    {
        return errorNumber != 0
            && (ending == RunEnding::Done || (ending == RunEnding::Stopped && isWritten));
    }
};

} // namespace velmora::writing
