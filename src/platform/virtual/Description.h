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

/// How long a drive takes where real timing is asked for, in seconds.
struct DriveDelays {
    double tray = 1.5;    ///< the tray's way in or out
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
    bool unplugged = false;   ///< whoever asks it finds nothing
    QList<qint32> profiles;   ///< MMC profile numbers
    /// Sectors per second, fastest first, of the kinds of disc (by key) that are written at other
    /// speeds than usual.
    QMap<QString, QList<quint32>> speeds;
    bool realTiming = false;
    DriveDelays delays;
};

/// A disc, less its sectors.
struct Disc {
    const MediumFacts* medium = nullptr;
    qint64 capacity = 0;                     ///< sectors
    QString sectorFile;                      ///< see IsSectorFileName; another one for each disc
    QList<drive::SessionFacts> sessions;     ///< ended properly, in rising order
    std::optional<drive::SessionFacts> open; ///< begun and not ended: a write runs, or was cut
    bool closed = false;
    bool writeProtected = false;
    bool upsideDown = false;
    bool formatted = false;      ///< where the kind of disc needs it
    bool quicklyBlanked = false; ///< a DVD-RW that takes one session only
    qint32 secondsToReady = 0;   ///< the drive needs so long until it knows the disc
};

enum class FaultKind : quint8 {
    MediumError,     ///< the sector can't be written
    LossOfStreaming, ///< the data comes too slowly at the sector
    Removed,         ///< the disc leaves the drive when the sector's turn comes
    Unplugged,       ///< the drive goes when the sector's turn comes
    Altered,         ///< a byte of the sector is written wrong, and the write called good
    Swallowed,       ///< the sector isn't written, and the write called good
    ReadError,       ///< the sector can't be read
    SlowRead,        ///< the sector can be read only as slowly as the drive can
    Swapped,         ///< another disc lies in the drive when the sector is read
    GoneAtRead,      ///< the drive goes when the sector is read
    NeverReady,      ///< the drive never gets to know the disc
    TrayStuck,       ///< the tray can't be pulled in
    EraseFails,      ///< an erase is refused
};

struct Fault {
    FaultKind kind = FaultKind::MediumError;
    qint64 sector = 0;    ///< on the disc; 0 where the kind knows none
    bool lasting = false; ///< stays after it has struck
};

/// All that there is to say of a virtual recorder.
struct Description {
    DriveDescription drive;
    bool trayOpen = false;
    qint64 readyAt = 0; ///< milliseconds since 1970; the disc can't be used before
    std::optional<Disc> disc;
    /// Names of sector files of ours that belong to no disc: of one that was taken out, or is still
    /// being made. All else that lies in the folder is somebody else's.
    QStringList spareFiles;
    QList<Fault> faults;
};

/// "disc-N.iso", N from 1 on: the name of a file of sectors in the recorder's folder.
bool IsSectorFileName(QStringView name);

/// Puts another disc in the place of the one that may be there, or none. Sectors that no longer
/// belong to a disc are spare.
void ExchangeDisc(Description& description, std::optional<Disc> disc);

/// A drive for every kind of disc, with an empty, closed tray.
Description NewDescription();

/// The planned fault of that kind; nullptr where none is.
const Fault* FindFault(const Description& description, FaultKind kind);

/// A fault has struck: it goes unless it is lasting.
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

/// A description can't be understood: C0AA02FF.
/// @param why  French, the end of a sentence
runtime::RuntimeError UnreadableDescription(const QString& why);

/// The description as text (JSON), and back. Names of the drive come without signs that a terminal
/// would obey.
QByteArray ToText(const Description& description);
/// Errors: UnreadableDescription for a text that is none, or one of a later version.
Description FromText(const QByteArray& text);

} // namespace velmora::virtualdrive
