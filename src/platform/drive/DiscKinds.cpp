// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/DiscKinds.h"

#include <algorithm>

namespace velmora::drive {

namespace {

using enum IMAPI_MEDIA_PHYSICAL_TYPE;
using enum Formatting;
using Recording::Once;
using Recording::Overwritable;
using Recording::Pressed;
using Recording::Sequential;

enum class Use : quint8 { Reads, Records, Rewrites };

constexpr DiscKind Row(
    IMAPI_MEDIA_PHYSICAL_TYPE type, QStringView name, DiscFamily family, Use use, qint64 sectors)
{
    DiscKind kind {.type = type,
        .name = name,
        .family = family,
        .isRecordable = use != Use::Reads,
        .isErasable = use == Use::Rewrites,
        .isDualLayer = false,
        .sectors = sectors,
        .fileSystems = FsiFileSystems::Udf,
        .udf = UdfLevel::Udf250};
    if (family == DiscFamily::Cd) {
        kind.fileSystems = FsiFileSystems::Iso9660AndJoliet;
        kind.udf = UdfLevel::Udf102;
    }
    if (family == DiscFamily::Dvd) {
        kind.fileSystems = FsiFileSystems::All;
        kind.udf = UdfLevel::Udf102;
    }
    return kind;
}

constexpr DiscKind DualLayer(DiscKind kind)
{
    kind.isDualLayer = true;
    return kind;
}

constexpr std::array kKinds {
    Row(CdRom, u"CD-ROM", DiscFamily::Cd, Use::Reads, capacity::kCd90),
    Row(CdR, u"CD-R", DiscFamily::Cd, Use::Records, capacity::kCd90),
    Row(CdRw, u"CD-RW", DiscFamily::Cd, Use::Rewrites, capacity::kCd90),
    Row(DvdRom, u"DVD-ROM", DiscFamily::Dvd, Use::Reads, capacity::kDvdPlusR),
    Row(DvdRam, u"DVD-RAM", DiscFamily::Dvd, Use::Rewrites, capacity::kDvdRam),
    Row(DvdPlusR, u"DVD+R", DiscFamily::Dvd, Use::Records, capacity::kDvdPlusR),
    Row(DvdPlusRw, u"DVD+RW", DiscFamily::Dvd, Use::Rewrites, capacity::kDvdPlusR),
    DualLayer(Row(DvdPlusRDualLayer,
        u"DVD+R DL",
        DiscFamily::Dvd,
        Use::Records,
        capacity::kDvdPlusRDualLayer)),
    Row(DvdDashR, u"DVD-R", DiscFamily::Dvd, Use::Records, capacity::kDvdDashR),
    Row(DvdDashRw, u"DVD-RW", DiscFamily::Dvd, Use::Rewrites, capacity::kDvdDashR),
    DualLayer(Row(DvdDashRDualLayer,
        u"DVD-R DL",
        DiscFamily::Dvd,
        Use::Records,
        capacity::kDvdDashRDualLayer)),
    Row(Disk, {}, DiscFamily::None, Use::Records, 0),
    DualLayer(Row(DvdPlusRwDualLayer,
        u"DVD+RW DL",
        DiscFamily::Dvd,
        Use::Rewrites,
        capacity::kDvdPlusRDualLayer)),
    Row(HdDvdRom, {}, DiscFamily::HdDvd, Use::Reads, capacity::kBluRayDualLayer),
    Row(HdDvdR, {}, DiscFamily::HdDvd, Use::Records, capacity::kBluRayDualLayer),
    Row(HdDvdRam, {}, DiscFamily::HdDvd, Use::Records, capacity::kBluRayDualLayer),
    Row(BdRom, u"BD-ROM", DiscFamily::BluRay, Use::Reads, capacity::kBluRayDualLayer),
    Row(BdR, u"BD-R", DiscFamily::BluRay, Use::Records, capacity::kBluRayDualLayer),
    Row(BdRe, u"BD-RE", DiscFamily::BluRay, Use::Rewrites, capacity::kBluRayDualLayer),
};

constexpr ProfileFacts kNoDisc {profile::kUnknown, Unknown, Recording::Unknown, Never, {}};

constexpr std::array kProfiles {
    ProfileFacts {profile::kRemovableDisk, Disk, Recording::Unknown, Never, {}}, // no optical disc
    ProfileFacts {profile::kCdRom, CdRom, Pressed, Never, {}},
    ProfileFacts {profile::kCdR, CdR, Once, Never, {3600, 3000, 2400, 1800, 1200, 600}},
    ProfileFacts {profile::kCdRw, CdRw, Sequential, Never, {1800, 1200, 750, 300}},
    ProfileFacts {profile::kDvdRom, DvdRom, Pressed, Never, {}},
    ProfileFacts {profile::kDvdDashR, DvdDashR, Once, Never, {10'880, 8160, 5440, 4080, 2720}},
    ProfileFacts {profile::kDvdRam, DvdRam, Overwritable, Never, {3400, 2040, 1360}, true},
    ProfileFacts {
        profile::kDvdDashRwOverwrite, DvdDashRw, Overwritable, BeforeEachWrite, {4080, 2720, 1360}},
    ProfileFacts {profile::kDvdDashRwSequential, DvdDashRw, Sequential, Never, {4080, 2720, 1360}},
    ProfileFacts {
        profile::kDvdDashRDualLayer, DvdDashRDualLayer, Once, Never, {5440, 4080, 2720, 1360}},
    ProfileFacts {
        profile::kDvdDashRLayerJump, DvdDashRDualLayer, Once, Never, {5440, 4080, 2720, 1360}},
    ProfileFacts {
        profile::kDvdPlusRw, DvdPlusRw, Overwritable, BeforeFirstWrite, {5440, 4080, 2720, 1632}},
    ProfileFacts {profile::kDvdPlusR, DvdPlusR, Once, Never, {10'880, 8160, 5440, 4080, 2720}},
    ProfileFacts {
        profile::kDvdPlusRwDualLayer, DvdPlusRwDualLayer, Overwritable, BeforeFirstWrite, {1632}},
    ProfileFacts {
        profile::kDvdPlusRDualLayer, DvdPlusRDualLayer, Once, Never, {5440, 4080, 2720, 1360}},
    ProfileFacts {profile::kBdRom, BdRom, Pressed, Never, {}},
    ProfileFacts {
        profile::kBdRSequential, BdR, Once, Never, {35'120, 26'340, 17'560, 13'170, 8780, 4390}},
    ProfileFacts {
        profile::kBdRRandom, BdR, Once, Never, {35'120, 26'340, 17'560, 13'170, 8780, 4390}},
    ProfileFacts {profile::kBdRe, BdRe, Overwritable, BeforeFirstWrite, {4390, 2195}, true},
};

} // namespace

std::span<const DiscKind> AllDiscKinds() { return kKinds; }

const DiscKind* FindDiscKind(IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const auto* found = std::ranges::find(kKinds, type, &DiscKind::type);
    return found == kKinds.end() ? nullptr : found;
}

const ProfileFacts& FactsOfProfile(qint32 profile)
{
    const auto* found = std::ranges::find(kProfiles, profile, &ProfileFacts::profile);
    return found == kProfiles.end() ? kNoDisc : *found;
}

IMAPI_MEDIA_PHYSICAL_TYPE MediaTypeOfProfile(qint32 profile)
{
    return FactsOfProfile(profile).type;
}

DiscFamily FamilyOfProfile(qint32 profile)
{
    const DiscKind* kind = FindDiscKind(MediaTypeOfProfile(profile));
    return kind == nullptr ? DiscFamily::None : kind->family;
}

bool IsRecordable(IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const DiscKind* kind = FindDiscKind(type);
    return kind == nullptr ? type != Unknown : kind->isRecordable;
}

bool IsErasable(IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const DiscKind* kind = FindDiscKind(type);
    return kind != nullptr && kind->isErasable;
}

bool CanRecord(const QList<qint32>& profiles)
{
    return std::ranges::any_of(profiles, [](qint32 profile) {
        const IMAPI_MEDIA_PHYSICAL_TYPE type = MediaTypeOfProfile(profile);
        return type != Disk && IsRecordable(type);
    });
}

bool CanErase(const QList<qint32>& profiles)
{
    return std::ranges::any_of(
        profiles, [](qint32 profile) { return IsErasable(MediaTypeOfProfile(profile)); });
}

quint32 SingleSpeedOf(IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    constexpr quint32 kCd = 75;
    constexpr quint32 kDvd = 680; // also of discs of other families
    constexpr quint32 kBluRay = 2195;
    if (type == Unknown) {
        return 0;
    }
    const DiscKind* kind = FindDiscKind(type);
    const DiscFamily family = kind == nullptr ? DiscFamily::None : kind->family;
    if (family == DiscFamily::Cd) {
        return kCd;
    }
    return family == DiscFamily::BluRay ? kBluRay : kDvd;
}

} // namespace velmora::drive
