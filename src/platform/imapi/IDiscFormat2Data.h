// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "imapi/DiscComparison.h"
#include "imapi/IDiscRecorder2.h"
#include "imapi/IMultisession.h"
#include "imapi/IStream.h"

#include <QStringList>

#include <functional>

namespace velmora::imapi {

/// The speed to request when the fastest is wanted.
inline constexpr qint32 kFastestWriteSpeed = -1;

/// The state of a disc: a sum of bits, with the published numbers.
namespace media_state {
inline constexpr qint32 kUnknown = 0;              ///< also no disc
inline constexpr qint32 kOverwriteOnly = 0x1;      ///< written from sector 0 at any time
inline constexpr qint32 kBlank = 0x2;              ///< write-once or sequential, nothing recorded
inline constexpr qint32 kAppendable = 0x4;         ///< a session can follow
inline constexpr qint32 kFinalSession = 0x8;       ///< the next session is the last one
inline constexpr qint32 kDamaged = 0x400;          ///< the last session was not ended properly
inline constexpr qint32 kEraseRequired = 0x800;    ///< full or closed, and can be erased
inline constexpr qint32 kNonEmptySession = 0x1000; ///< the last session is open and not empty
inline constexpr qint32 kWriteProtected = 0x2000;
inline constexpr qint32 kFinalized = 0x4000; ///< no further session is possible
inline constexpr qint32 kUnsupported = 0x8000;
} // namespace media_state

using IMAPI_FORMAT2_DATA_WRITE_ACTION = drive::WriteAction;

/// What an Update event says about a write. Sectors are 2048 bytes, times are whole seconds.
struct IDiscFormat2DataEventArgs {
    IMAPI_FORMAT2_DATA_WRITE_ACTION CurrentAction = drive::WriteAction::ValidatingMedia;
    qint32 ElapsedTime = 0;   ///< since the write began
    qint32 RemainingTime = 0; ///< expected, 0 while unknown
    qint32 TotalTime = 0;     ///< expected in all, 0 while unknown
    qint32 StartLba = 0;
    qint32 SectorCount = 0; ///< of the whole stream
    /// Taken from the stream; while data is verified, read from the disc: StartLba only in the
    /// first event of a verification.
    qint32 LastReadLba = 0;
    qint32 LastWrittenLba = 0;
    qint32 TotalSystemBuffer = 0; ///< bytes between stream and drive
    qint32 UsedSystemBuffer = 0;
    qint32 FreeSystemBuffer = 0;
};

using DiscFormat2DataUpdate = std::function<void(const IDiscFormat2DataEventArgs&)>;

/// Writes data to the disc in a recorder.
///
/// Members that ask about the disc need a recorder (C0AA0003 without one) and raise the failures of
/// every access to a drive ("DEV", see IDiscRecorder2); while a write runs they raise C0AA0400.
/// They answer from one examination of the disc while it is fresh (two seconds), so that a series
/// of queries costs a slow drive one answer; IsCurrentMediaSupported and Write always examine the
/// disc anew.
class IDiscFormat2Data {
public:
    IDiscFormat2Data() = default;
    virtual ~IDiscFormat2Data() = default;
    IDiscFormat2Data(const IDiscFormat2Data&) = delete;
    IDiscFormat2Data& operator=(const IDiscFormat2Data&) = delete;
    IDiscFormat2Data(IDiscFormat2Data&&) = delete;
    IDiscFormat2Data& operator=(IDiscFormat2Data&&) = delete;

    /// The recorder, empty until one is set. Any drive is accepted, so that IsRecorderSupported can
    /// tell what is wrong with it; Write refuses one that can't record.
    /// Errors: E_POINTER (-2147467261) for an empty one, C0AA0400 while a write runs.
    virtual void SetRecorder(const RecorderRef& recorder) = 0;
    virtual RecorderRef Recorder() const = 0;

    /// The client's name: 1 to 63 of A-Z a-z 0-9 blank . , : ; - _; empty until it is set.
    /// Errors: C0AA0408 for another name, C0AA0400 while a write runs.
    virtual void SetClientName(const QString& name) = 0;
    virtual QString ClientName() const = 0;

    /// Can the drive record any kind of disc? Errors: E_POINTER; E_FAIL for an unbound one.
    virtual bool IsRecorderSupported(const RecorderRef& recorder) const = 0;

    /// Is there a disc of a recordable kind, whatever is on it? False without a disc.
    /// Errors: E_POINTER; DEV.
    virtual bool IsCurrentMediaSupported(const RecorderRef& recorder) = 0;

    /// A sum of media_state bits.
    virtual qint32 CurrentMediaStatus() = 0;

    /// Unknown for an empty tray, too.
    virtual drive::IMAPI_MEDIA_PHYSICAL_TYPE CurrentPhysicalMediaType() = 0;

    /// Nothing that matters is recorded. A guess for discs that are written from sector 0 at any
    /// time. Errors: C0AA0202 without a disc.
    virtual bool MediaHeuristicallyBlank() = 0;

    /// Sectors that a write can still fill. Errors: C0AA0202 without a disc.
    virtual qint64 FreeSectorsOnMedia() = 0;
    /// Sectors of the whole disc. Errors: C0AA0202 without a disc.
    virtual qint64 TotalSectorsOnMedia() = 0;

    /// Speeds for this disc in this drive, in sectors per second: the fastest first, each once, at
    /// least one (the single speed of the disc's kind when the drive names none).
    /// Errors: C0AA0202 without a disc.
    virtual QList<quint32> SupportedWriteSpeeds() = 0;

    /// The supported speed that a write will use, in sectors per second.
    /// Errors: C0AA0202 without a disc.
    virtual qint32 CurrentWriteSpeed() = 0;
    /// The requested speed; kFastestWriteSpeed by default.
    virtual qint32 RequestedWriteSpeed() = 0;
    /// False: no drive is driven at a constant angular velocity on request.
    virtual bool CurrentRotationTypeIsPureCAV() = 0;

    /// Requests a speed. An unsupported one becomes the nearest that is supported, the slower of
    /// two equally near ones.
    /// @param speed  sectors per second, or kFastestWriteSpeed
    /// @return       0, or 0x00AA0004 (speed adjusted), 0x00AA0005 (pure CAV not granted) or
    ///               0x00AA0006 (both)
    /// Errors: C0AA0202 without a disc.
    virtual qint32 SetWriteSpeed(qint32 speed, bool rotationTypeIsPureCAV) = 0;

    /// True: no session can follow the next write. False until set; without effect on discs that
    /// are written from sector 0 at any time. A disc with at most a fiftieth left is closed anyway.
    /// Errors: C0AA0400 while a write runs.
    virtual void SetForceMediaToBeClosed(bool closed) = 0;
    virtual bool ForceMediaToBeClosed() const = 0; ///< as published; no run asks

    /// True: a disc that is written from sector 0 at any time may lose what it holds. False until
    /// set, and no run sets it. Errors: C0AA0400 while a write runs.
    virtual void SetForceOverwrite(bool overwrite) = 0;
    virtual bool ForceOverwrite() const = 0;

    /// What a further recording needs to know; one element. A blank disc is no error.
    virtual QList<MultisessionRef> MultisessionInterfaces() = 0;

    /// Writes the whole stream and returns when the drive has finished and, if wanted, the disc was
    /// compared with what was written. The drive is locked meanwhile, and a mounted disc unmounted.
    /// Write-once discs get a recording after the last one, others are written from sector 0.
    ///
    /// A disc that isn't available for the comparison is no failure: see Comparison.
    /// Errors: E_POINTER for an empty stream; C0AA0003 (no recorder), C0AA0408 (no client name),
    /// C0AA0400 (a write runs already), C0AA0403 (the stream is empty or its bytes are no multiple
    /// of 2048), C0AA0407 (the drive can't record), C0AA0202 (no disc), C0AA0406 (a kind of disc
    /// that can't be recorded), C0AA0209 (write-protected), C0AA0402 (closed for good), C0AA0405
    /// (holds data that must be erased or overwritten first), C0AA0404 (the stream is larger than
    /// the room), C0AA0002 (cancelled), C0AA0300, C0AA0301, C0AA0007 (the disc isn't as written);
    /// DEV; what the stream raised.
    virtual void Write(const StreamRef& data) = 0;

    /// The result of comparing the disc of the last Write.
    virtual const DiscComparison& Comparison() const = 0;

    /// What else went wrong during the last Write without affecting its disc, in French sentences.
    virtual const QStringList& Remarks() const = 0;

    /// Ends the write as soon as the drive can, by C0AA0002; the disc is then undefined, unless
    /// Comparison says that it was written: a session that is being finalized isn't interrupted.
    /// During the comparison, only that is ended: the disc is complete, and Write returns. Only
    /// from inside the handlers of OnUpdate and OnWait. Errors: C0AA0401 anywhere else.
    virtual void CancelWrite() = 0;

    /// Sets the one handler of the Update event. It is called on the calling thread, inside Write:
    /// at each change of action, and about 25 times a second while data is written or verified; any
    /// other step is reported once, however long it takes. An error that leaves the handler is
    /// dropped.
    virtual void OnUpdate(DiscFormat2DataUpdate handler) = 0;

    /// Sets the function that is called repeatedly during such a long step, as from the handler of
    /// the Update event: a write can be cancelled there too.
    virtual void OnWait(std::function<void()> handler) = 0;
};

using DiscFormat2DataRef = std::shared_ptr<IDiscFormat2Data>;

} // namespace velmora::imapi
