// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"

#include <QList>
#include <QStringView>
#include <QtGlobal>

#include <array>
#include <span>

// All that the program knows about kinds of disc, in two tables: one by the published type, as
// users think of discs, and one by the MMC profile, as drives do.
namespace velmora::drive {

/// Sectors of 2048 bytes that blank discs have.
namespace capacity {
inline constexpr qint64 kCd74 = 333'000; ///< minutes
inline constexpr qint64 kCd80 = 359'847;
inline constexpr qint64 kCd90 = 404'850;
inline constexpr qint64 kDvdDashR = 2'298'496; ///< and DVD-RW
inline constexpr qint64 kDvdRam = 2'236'704;
inline constexpr qint64 kDvdPlusR = 2'295'104; ///< and DVD+RW
inline constexpr qint64 kDvdDashRDualLayer = 4'171'712;
inline constexpr qint64 kDvdPlusRDualLayer = 4'173'824; ///< and DVD+RW
inline constexpr qint64 kBluRay = 12'219'392;
inline constexpr qint64 kBluRayFormatted = 11'826'176; ///< BD-RE with the usual spare areas
inline constexpr qint64 kBluRayDualLayer = 24'438'784;
inline constexpr qint64 kBluRayDualLayerFormatted = 23'652'352;
inline constexpr qint64 kBluRayFourLayers = 62'500'000;
} // namespace capacity

/// Sectors of the shortest track that a CD can have: four seconds.
inline constexpr qint64 kShortestCdTrack = 300;

/// MMC profile numbers (MMC-6, 5.3.1).
namespace profile {
inline constexpr qint32 kRemovableDisk = 0x02;
inline constexpr qint32 kCdRom = 0x08;
inline constexpr qint32 kCdR = 0x09;
inline constexpr qint32 kCdRw = 0x0A;
inline constexpr qint32 kDvdRom = 0x10;
inline constexpr qint32 kDvdDashR = 0x11;
inline constexpr qint32 kDvdRam = 0x12;
inline constexpr qint32 kDvdDashRwOverwrite = 0x13; ///< restricted overwrite
inline constexpr qint32 kDvdDashRwSequential = 0x14;
inline constexpr qint32 kDvdDashRDualLayer = 0x15;
inline constexpr qint32 kDvdDashRLayerJump = 0x16;
inline constexpr qint32 kDvdPlusRw = 0x1A;
inline constexpr qint32 kDvdPlusR = 0x1B;
inline constexpr qint32 kDvdPlusRwDualLayer = 0x2A;
inline constexpr qint32 kDvdPlusRDualLayer = 0x2B;
inline constexpr qint32 kBdRom = 0x40;
inline constexpr qint32 kBdRSequential = 0x41;
inline constexpr qint32 kBdRRandom = 0x42;
inline constexpr qint32 kBdRe = 0x43;
inline constexpr qint32 kUnknown = 0xFFFF; ///< a disc that conforms to none
} // namespace profile

enum class DiscFamily : quint8 {
    None, ///< not an optical disc
    Cd,
    Dvd,
    HdDvd, ///< the other disc of the blue laser
    BluRay,
};

/// Revisions of UDF, as readers of a family expect them.
enum class UdfLevel : quint8 { Udf102, Udf250 };

/// How a disc is recorded.
enum class Recording : quint8 {
    Pressed,      ///< not at all
    Once,         ///< one session after another
    Sequential,   ///< as Once, but can be blanked
    Overwritable, ///< from sector 0 at any time
    Unknown,      ///< an unknown disc
};

/// When a disc as it is sold has to be formatted before it is written.
enum class Formatting : quint8 { Never, BeforeFirstWrite, BeforeEachWrite };

/// One published kind of disc.
struct DiscKind {
    IMAPI_MEDIA_PHYSICAL_TYPE type;
    QStringView name; ///< as printed on discs; empty if today's drives don't take it
    DiscFamily family;
    bool isRecordable;
    bool isErasable;
    bool isDualLayer;           ///< only such discs; other kinds may have them too
    qint64 sectors;             ///< on the largest common disc; 0 = no limit
    FsiFileSystems fileSystems; ///< that its readers expect
    UdfLevel udf;
};

/// What discs of one MMC profile are like.
struct ProfileFacts {
    qint32 profile;
    IMAPI_MEDIA_PHYSICAL_TYPE type;
    Recording recording;
    Formatting formatting;
    /// Sectors per second at which such discs are usually written, fastest first; 0 = none.
    std::array<quint32, 6> usualSpeeds;
    /// An unformatted disc has to be formatted by a command: a write doesn't do it.
    bool needsFormatCommand = false;
};

/// All kinds, in the order of their numbers.
std::span<const DiscKind> AllDiscKinds();

/// The kind of that number; nullptr if it names no disc.
const DiscKind* FindDiscKind(IMAPI_MEDIA_PHYSICAL_TYPE type);

/// The facts of a profile; those of an unknown disc if it isn't a disc's.
const ProfileFacts& FactsOfProfile(qint32 profile);

/// The kind of disc that an MMC profile means; Unknown for a profile that names none.
IMAPI_MEDIA_PHYSICAL_TYPE MediaTypeOfProfile(qint32 profile);

/// The family of the discs of a profile.
DiscFamily FamilyOfProfile(qint32 profile);

/// Can a disc of this kind be recorded at all? Yes for a number that names no kind.
bool IsRecordable(IMAPI_MEDIA_PHYSICAL_TYPE type);

/// Can a disc of this kind be erased?
bool IsErasable(IMAPI_MEDIA_PHYSICAL_TYPE type);

/// Does a drive of these profiles record, respectively erase, any kind of optical disc?
bool CanRecord(const QList<qint32>& profiles);
bool CanErase(const QList<qint32>& profiles);

/// Sectors of 2048 bytes per second at 1x: 75 (CD), 680 (DVD), 2195 (Blu-ray); 0 for no disc.
quint32 SingleSpeedOf(IMAPI_MEDIA_PHYSICAL_TYPE type);

} // namespace velmora::drive
