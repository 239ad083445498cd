// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "runtime/RuntimeError.h"
#include "virtual/Media.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

namespace velmora::virtualdrive {

/// How long a drive takes when real timing is requested, in seconds.
struct DriveDelays {
    double tray = 1.5;    ///< to move the tray in or out
    double ready = 4;     ///< from the closed tray until the disc can be used
    double format = 3;    ///< of a disc that needs it
    double prepare = 2;   ///< before a write
    double calibrate = 3; ///< the laser's power
    double finish = 8;    ///< end of a session
    double quickErase = 40;
};

struct DriveDescription {
    QString vendor;
    QString product;
    QString revision;
    qint32 number = 0;        ///< counts the recorders of this machine
    bool canLoadMedia = true; ///< the tray can be pulled in
    bool unplugged = false;   ///< the drive doesn't answer
    QList<qint32> profiles;   ///< MMC profile numbers
    /// Sectors per second, fastest first, for the kinds of disc (by key) that aren't written at the
    /// usual speeds.
    QMap<QString, QList<quint32>> speeds;
    bool realTiming = false;
    DriveDelays delays;
};

/// A disc, without its sectors.
struct Disc {
    const MediumFacts* medium = nullptr;
    qint64 capacity = 0;                 ///< sectors
    QString sectorFile;                  ///< see IsSectorFileName; a different one for each disc
    QList<drive::SessionFacts> sessions; ///< ended properly, in rising order
    std::optional<drive::SessionFacts> open; ///< not ended: a write runs, or was interrupted
    bool closed = false;
    bool writeProtected = false;
    bool upsideDown = false;
    bool formatted = false;      ///< if the kind of disc needs it
    bool quicklyBlanked = false; ///< a DVD-RW that takes one session only
    qint32 secondsToReady = 0;   ///< the drive takes this long to recognise the disc
};

enum class FaultKind : quint8 {
    MediumError,     ///< the sector can't be written
    LossOfStreaming, ///< the data comes too slowly at the sector
    Removed,         ///< the disc is taken out when the sector's turn comes
    Unplugged,       ///< the drive is unplugged when the sector's turn comes
    Altered,         ///< a byte of the sector is written wrong, but the write reports success
    Swallowed,       ///< the sector isn't written, but the write reports success
    ReadError,       ///< the sector can't be read
    SlowRead,        ///< the sector can be read only as slowly as the drive can
    Swapped,         ///< the disc is replaced when the sector is read
    GoneAtRead,      ///< the drive is unplugged when the sector is read
    NeverReady,      ///< the drive never recognises the disc
    TrayStuck,       ///< the tray can't be pulled in
    EraseFails,      ///< an erase is refused
};

struct Fault {
    FaultKind kind = FaultKind::MediumError;
    qint64 sector = 0;    ///< on the disc; 0 if the kind has none
    bool lasting = false; ///< stays after it has struck
};

/// Everything about a virtual recorder.
struct Description {
    DriveDescription drive;
    bool trayOpen = false;
    qint64 readyAt = 0; ///< milliseconds since 1970; the disc can't be used earlier
    std::optional<Disc> disc;
    /// Names of our sector files that belong to no disc: it was taken out, or is still being made.
    /// Everything else in the folder is somebody else's.
    QStringList spareFiles;
    QList<Fault> faults;
};

/// "disc-N.iso", N from 1 on: the name of a file of sectors in the recorder's folder.
bool IsSectorFileName(QStringView name);

/// Replaces the disc, if any, by another or by none. Sector files that no longer belong to a disc
/// are spare.
void ExchangeDisc(Description& description, std::optional<Disc> disc);

/// A drive for every kind of disc, with an empty, closed tray.
Description NewDescription();

/// The planned fault of that kind; nullptr if there is none.
const Fault* FindFault(const Description& description, FaultKind kind);

/// A fault has struck: it is removed unless it is permanent.
void Spend(Description& description, FaultKind kind, qint64 sector = 0);

/// "medium", "streaming", ...: how faults are named in descriptions and on command lines.
QString KeyOf(FaultKind kind);
std::optional<FaultKind> FindFaultKind(QStringView key);
/// Does that kind of fault wait for a sector?
bool HasSector(FaultKind kind);
/// Does it wait for the sector to be written?
bool StrikesWrites(FaultKind kind);
/// Does it wait for the sector to be read?
bool StrikesReads(FaultKind kind);

/// The error for a description that can't be understood: C0AA02FF.
/// @param why  French, the end of a sentence
runtime::RuntimeError UnreadableDescription(const QString& why);

/// The description as text (JSON), and back. Names of the drive come without terminal control
/// characters.
QByteArray ToText(const Description& description);
/// Errors: UnreadableDescription for a text that isn't one, or is of a later version.
Description FromText(const QByteArray& text);

} // namespace velmora::virtualdrive
