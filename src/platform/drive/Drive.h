// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <cstddef>
#include <functional>
#include <memory>
#include <span>

namespace velmora::drive {

/// What a drive says about itself, with or without a disc.
struct DriveFacts {
    QString id;     ///< unique and stable: identifies the recorder
    QString vendor; ///< INQUIRY field, blanks at the end removed
    QString product;
    QString revision;
    QString volumeName;        ///< unique name of the device
    bool canLoadMedia = false; ///< the tray can be pulled in (MMC feature 0003h)
    qint32 legacyNumber = 0;   ///< N of /dev/srN
    QStringList paths;         ///< shown to the user: the device node
    QList<qint32> profiles;    ///< MMC profile numbers in the drive's order
};

/// An existing recording on the disc.
struct SessionFacts {
    qint64 firstSector = 0;
    qint64 sectors = 0;
};

/// The state of a disc.
enum class DiscState : quint8 {
    None,         ///< no disc
    Blank,        ///< write-once or sequential, nothing recorded
    Appendable,   ///< recorded, with room for another session
    Closed,       ///< no further session is possible
    Overwritable, ///< written from sector 0 at any time
    Unsupported,  ///< a disc that can't be used
};

/// The disc in the drive, as found when it was examined.
struct DiscInfo {
    DiscState state = DiscState::None;
    qint32 profile = 0;              ///< current MMC profile, 0 = no disc
    bool heuristicallyBlank = false; ///< nothing that matters is recorded
    bool erasable = false;           ///< a quick or full erase is possible
    bool writeProtected = false;     ///< known to be so
    bool damaged = false;            ///< the last session was not ended properly
    bool canStayOpen = false;        ///< a write may leave it appendable
    bool lastSessionOpen = false;    ///< the last session is not empty and not closed
    qint64 freeSectors = 0;          ///< of 2048 bytes
    /// The disc's full capacity, including the gaps between its sessions; for a closed disc what it
    /// holds.
    qint64 totalSectors = 0;
    qint64 nextWritable = 0; ///< sector at which the next write begins
    /// In rising order, those that were ended properly. An overwritable disc has none: it tells its
    /// size, not how much of it was written.
    QList<SessionFacts> sessions;
    QList<quint32> writeSpeeds; ///< sectors per second, fastest first, each once
};

/// What a write is doing; the numbers are those of IMAPI_FORMAT2_DATA_WRITE_ACTION.
enum class WriteAction : qint32 {
    ValidatingMedia = 0,
    FormattingMedia = 1,
    InitializingHardware = 2,
    CalibratingPower = 3,
    WritingData = 4,
    Finalization = 5,
    Completed = 6,
    Verifying = 7,
};

/// The progress of a write. Sectors are 2048 bytes.
struct WriteProgress {
    WriteAction action = WriteAction::ValidatingMedia;
    qint64 startSector = 0;
    qint64 sectorCount = 0;    ///< of the whole stream; above 0 in every report of WritingData
    qint64 lastReadSector = 0; ///< taken from the stream
    qint64 lastWrittenSector = 0;
    qint64 bufferBytes = 0; ///< between stream and drive
    qint64 bufferUsedBytes = 0;
};

/// Called on the calling thread: at each change of action, about 25 times a second in between, and
/// once more with what was written when a write fails or is stopped. False stops the write as soon
/// as the drive can.
using WriteReport = std::function<bool(const WriteProgress&)>;

/// Gives the next bytes to write: fills the whole span, or raises.
using WriteSource = std::function<void(std::span<std::byte>)>;

/// The speed to ask for, in sectors per second, when the fastest is wanted.
inline constexpr quint32 kFastestSpeed = 0xFFFFFFFF;

struct WriteOrder {
    WriteSource source;            ///< called on the calling thread or one other, never two at once
    qint64 sectors = 0;            ///< exactly this many are taken from the source
    quint32 speed = kFastestSpeed; ///< sectors per second
    bool closeDisc = false;        ///< no session can follow
};

/// How fast a disc is read.
enum class ReadSpeed : quint8 {
    Fastest, ///< the drive's default
    Slowest, ///< for sectors that are hard to read
};

/// Elapsed seconds and expected total. Called on the calling thread, every half second. False stops
/// waiting for the erase: the drive itself may go on with it.
using EraseReport = std::function<bool(qint32 elapsedSeconds, qint32 estimatedSeconds)>;

/// One drive, real or virtual: the few things that hardware does. Whatever else the mastering
/// interfaces promise (locks by name, checks, speed rounding, published error numbers) is
/// implemented once, above it.
///
/// Every member raises RuntimeError with a published number and a French description. Calls block;
/// a call that may take long runs the event pump that the drive was made with, at least every 100
/// ms. A call from within that pump, or from a report, while another one runs is refused with
/// C0AA0207: a drive does one thing at a time.
class Drive {
public:
    Drive() = default;
    virtual ~Drive() = default;
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;
    Drive(Drive&&) = delete;
    Drive& operator=(Drive&&) = delete;

    /// Errors: E_ACCESSDENIED (no right to the device), C0AA02FF, 0x80070037 (gone).
    virtual DriveFacts Identify() = 0;

    /// Examines the disc. An empty tray is no error.
    /// Errors: C0AA0205 (getting ready), C0AA0206, C0AA0207, C0AA0204, C0AA0210 (in use), C0AA02FF
    /// (what the drive says about itself or the disc can't be understood), 0x80070037.
    virtual DiscInfo Examine() = 0;

    /// Opens the tray; a mounted disc is unmounted first. Errors: C0AA0210 (locked), DEV.
    virtual void Eject() = 0;
    /// Pulls the tray in. Errors: E_FAIL if the drive can't, DEV.
    virtual void CloseTray() = 0;

    /// Reserves the drive until Unlock.
    /// @param force  unmounts the disc if need be
    /// Errors: E_ACCESSDENIED (mounted, not forced), C0AA0210 (held by another program).
    virtual void Lock(bool force) = 0;
    virtual void Unlock() = 0;

    /// Reads whole sectors of what is recorded. Errors: C0AA0202, C0AAB157 (unreadable).
    virtual void Read(qint64 firstSector, std::span<std::byte> out) = 0;

    /// Requests a speed for the following reads, until the next write. A drive may ignore it
    /// without an error. Errors: DEV.
    virtual void SetReadSpeed(ReadSpeed speed) = 0;

    /// Writes a recording and returns when the drive has finished: on write-once discs after the
    /// last one, on others at sector 0.
    ///
    /// A stop requested while the drive ends the session is too late: that can't be interrupted
    /// without spoiling the disc. Such a write returns like any other, since its disc is complete;
    /// only a drive that doesn't get there for minutes is given up.
    /// Errors: C0AA0002 (stopped by the report), C0AA0209, C0AA0300, C0AA0301, C0AA0402, C0AA0404,
    /// C0AA0405, C0AA0406, E_FAIL (a virtual disc is complete, but its recorder's description
    /// couldn't be kept), DEV; what the source or the report raised.
    virtual void Write(const WriteOrder& order, const WriteReport& report) = 0;

    /// Errors: 80AA0904, 80AA0905, 80AA0906, 80AA0907, 80AA0908, C0AA0909, C0AA0202 (also: taken
    /// out meanwhile), C0AA0301 and E_FAIL (of the files of a virtual recorder), DEV. A stop by the
    /// report raises C0AA0002 if nothing was erased yet, and 80AA0907 after that: the disc's
    /// contents are then undefined.
    virtual void Erase(bool full, const EraseReport& report) = 0;
};

using DriveRef = std::shared_ptr<Drive>;

/// Where drives come from: the real ones, the virtual ones.
class DriveSource {
public:
    DriveSource() = default;
    virtual ~DriveSource() = default;
    DriveSource(const DriveSource&) = delete;
    DriveSource& operator=(const DriveSource&) = delete;
    DriveSource(DriveSource&&) = delete;
    DriveSource& operator=(DriveSource&&) = delete;

    /// Ids of the drives present, in a stable order.
    virtual QStringList Ids() = 0;
    /// The drive of that id; empty if it isn't this source's.
    virtual DriveRef Open(const QString& id) = 0;
};

} // namespace velmora::drive
