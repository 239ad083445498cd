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

/// What a drive says of itself, with or without a disc.
struct DriveFacts {
    QString id;     ///< unique and stable: what a recorder is named by
    QString vendor; ///< INQUIRY field, blanks at the end removed
    QString product;
    QString revision;
    QString volumeName;        ///< unique name of the device
    bool canLoadMedia = false; ///< the tray can be pulled in (MMC feature 0003h)
    qint32 legacyNumber = 0;   ///< N of /dev/srN
    QStringList paths;         ///< where a person finds it: the device node
    QList<qint32> profiles;    ///< MMC profile numbers in the drive's order
};

/// A recording of the disc that is there already.
struct SessionFacts {
    qint64 firstSector = 0;
    qint64 sectors = 0;
};

/// How far a disc is.
enum class DiscState : quint8 {
    None,         ///< no disc
    Blank,        ///< write-once or sequential, nothing recorded
    Appendable,   ///< recorded, with room for another session
    Closed,       ///< no further session is possible
    Overwritable, ///< written from sector 0 at any time
    Unsupported,  ///< a disc that can't be dealt with
};

/// The disc in the drive, as found by one look at it.
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
    /// All that the disc can hold, what lies between its sessions included; of a closed disc what
    /// it does hold.
    qint64 totalSectors = 0;
    qint64 nextWritable = 0; ///< sector at which the next write begins
    /// In rising order, those that were ended properly. An overwritable disc knows none: it says
    /// how large it is, not how much of it was written.
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

/// How far a write is. Sectors are of 2048 bytes.
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
/// once more with what was written where a write fails or is stopped. False stops the write as soon
/// as the drive can.
using WriteReport = std::function<bool(const WriteProgress&)>;

/// Gives the next bytes of what is to be written: fills the whole span, or raises.
using WriteSource = std::function<void(std::span<std::byte>)>;

struct WriteOrder {
    WriteSource source; ///< called on the calling thread or on one other, never on two at once
    qint64 sectors = 0; ///< exactly so many are taken from the source
    quint32 speed = 0xFFFFFFFF; ///< sectors per second, 0xFFFFFFFF = the fastest
    bool closeDisc = false;     ///< no session can follow
};

/// How fast a disc is read.
enum class ReadSpeed : quint8 {
    Fastest, ///< as drives do by themselves
    Slowest, ///< for places that are hard to read
};

/// Seconds gone and seconds expected in all. Called on the calling thread, every half second. False
/// ends the wait for the erase: no drive can be kept from going on with it by itself.
using EraseReport = std::function<bool(qint32 elapsedSeconds, qint32 estimatedSeconds)>;

/// One drive, real or virtual: the few things that hardware does. All that the mastering interfaces
/// promise beyond it (locks by name, checks, speed rounding, published numbers of refusals) is made
/// once, above it.
///
/// Every member raises RuntimeError with a published number and a French description. Calls block;
/// a call that may last hands events to the pump that the drive was made with, without a gap over
/// 100 ms. A call that comes out of that pump, or out of a report, while another one runs is
/// refused with C0AA0207: a drive does one thing at a time.
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

    /// Looks at the disc. An empty tray is no error.
    /// Errors: C0AA0205 (getting ready), C0AA0206, C0AA0207, C0AA0204, C0AA0210 (in use),
    /// C0AA02FF (what the drive says of itself or of the disc can't be understood), 0x80070037.
    virtual DiscInfo Examine() = 0;

    /// Opens the tray; a mounted disc is unmounted first. Errors: C0AA0210 (locked), DEV.
    virtual void Eject() = 0;
    /// Pulls the tray in. Errors: E_FAIL where the drive can't, DEV.
    virtual void CloseTray() = 0;

    /// Keeps the drive from everybody else until Unlock.
    /// @param force  unmounts the disc if need be
    /// Errors: E_ACCESSDENIED (mounted, not forced), C0AA0210 (held by another program).
    virtual void Lock(bool force) = 0;
    virtual void Unlock() = 0;

    /// Reads whole sectors of what is recorded. Errors: C0AA0202, C0AAB157 (unreadable).
    virtual void Read(qint64 firstSector, std::span<std::byte> out) = 0;

    /// Asks for a speed of the reads that follow, until the next write. It is a wish: a drive that
    /// refuses it reads on as before, and doesn't tell. Errors: DEV.
    virtual void SetReadSpeed(ReadSpeed speed) = 0;

    /// Writes a recording and returns when the drive has finished with it: on write-once discs
    /// behind the last one, on others at sector 0.
    ///
    /// A stop that comes while the drive ends the session finds the disc complete, and leaves it
    /// so: no drive can be kept from ending a session without spoiling it. It raises C0AA0002 all
    /// the same, as whoever asked for a stop must not be told of a success. The report of Completed
    /// is too late for a stop.
    /// Errors: C0AA0002 (stopped by the report), C0AA0209, C0AA0300, C0AA0301, C0AA0402, C0AA0404,
    /// C0AA0405, C0AA0406, DEV; what the source or the report raised.
    virtual void Write(const WriteOrder& order, const WriteReport& report) = 0;

    /// Errors: 80AA0904, 80AA0905, 80AA0906, 80AA0907, 80AA0908, C0AA0909, C0AA0202 (also:
    /// taken out meanwhile), DEV. A stop by the report raises C0AA0002 if nothing was erased yet,
    /// and 80AA0907 behind that: what the disc holds isn't known.
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

    /// Ids of the drives there are now, in a lasting order.
    virtual QStringList Ids() = 0;
    /// The drive of that id; empty where it isn't this source's.
    virtual DriveRef Open(const QString& id) = 0;
};

} // namespace velmora::drive
