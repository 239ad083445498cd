// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Data.h"
#include "imapi/IDiscMaster2.h"

#include <QString>

#include <vector>

namespace velmora::recorder {

/// One recorder as it was found at the start.
struct RecorderRecord {
    QString RecorderId {}; ///< holds kUnusableMark when the recorder can't be used
    QString RecorderVendor {};
    QString RecorderProduct {};
    QString RecorderRevision {};
    QString RecorderVolumeName {};   ///< kept as given; nobody asks for it
    QString RecorderCanLoadMedia {}; ///< "True" or "False"
    QString RecorderLegacyNumber {}; ///< in decimal digits; kept as given, nobody asks for it
    QString RecorderPath {};         ///< the last of the drive's paths
    qint32 RecorderMediaMask = 0;    ///< bits of media_mask
    QString RecorderMediaList {};    ///< names of discs, each followed by a semicolon

    friend bool operator==(const RecorderRecord&, const RecorderRecord&) = default;
};

/// Marks a record as unusable, anywhere in the id.
inline constexpr QStringView kUnusableMark = u"@@@@@@@@@@";

/// The place in the list of recorders when none is chosen.
inline constexpr qint16 kNoRecorder = -1;

/// The text of a record in the list of recorders: vendor:product (path).
QString RecorderItemText(const RecorderRecord& record);

/// What the program's rooms share about recorders. It is separate from shell::ProgramState, which
/// lies below this room and can't know a record; the index into RecorderList, SelectedRecorder, is
/// there. The window (or the terminal's run) owns both, the others get references.
struct RecorderState {
    /// One element more than there are recorders: the last one stays empty. Built once; no element
    /// at all until then.
    std::vector<RecorderRecord> RecorderList;
    /// The list of recorders of the present task.
    imapi::DiscMasterRef DiscMaster;
    /// The recorder that is being enumerated; left in place by an enumeration that failed.
    imapi::RecorderRef CurrentRecorder;
    /// The writer of the last detection, with its recorder.
    imapi::DiscFormat2DataRef MediaFormat;
};

} // namespace velmora::recorder
