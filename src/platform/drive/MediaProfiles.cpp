// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/MediaProfiles.h"

#include <algorithm>
#include <array>

namespace velmora::drive {

namespace {

using enum IMAPI_MEDIA_PHYSICAL_TYPE;

struct ProfileRow {
    qint32 profile;
    IMAPI_MEDIA_PHYSICAL_TYPE type;
};

// Profile numbers: MMC-6, 5.3.1.
constexpr std::array kProfiles {
    ProfileRow {2, Disk},
    ProfileRow {8, CdRom},
    ProfileRow {9, CdR},
    ProfileRow {10, CdRw},
    ProfileRow {16, DvdRom},
    ProfileRow {17, DvdDashR},
    ProfileRow {18, DvdRam},
    ProfileRow {19, DvdDashRw}, // restricted overwrite
    ProfileRow {20, DvdDashRw}, // sequential
    ProfileRow {21, DvdDashRDualLayer},
    ProfileRow {22, DvdDashRDualLayer}, // layer jump
    ProfileRow {26, DvdPlusRw},
    ProfileRow {27, DvdPlusR},
    ProfileRow {42, DvdPlusRwDualLayer},
    ProfileRow {43, DvdPlusRDualLayer},
    ProfileRow {64, BdRom},
    ProfileRow {65, BdR}, // sequential
    ProfileRow {66, BdR}, // random
    ProfileRow {67, BdRe},
};

constexpr std::array kOnlyRead {Unknown, CdRom, DvdRom, HdDvdRom, BdRom};
constexpr std::array kErasable {CdRw, DvdRam, DvdPlusRw, DvdDashRw, DvdPlusRwDualLayer, BdRe};
constexpr std::array kCds {CdRom, CdR, CdRw};
constexpr std::array kBluRays {BdRom, BdR, BdRe};

bool IsAmong(const auto& types, IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    return std::ranges::find(types, type) != types.end();
}

} // namespace

IMAPI_MEDIA_PHYSICAL_TYPE MediaTypeOfProfile(qint32 profile)
{
    const auto* found = std::ranges::find(kProfiles, profile, &ProfileRow::profile);
    return found == kProfiles.end() ? Unknown : found->type;
}

bool IsRecordable(IMAPI_MEDIA_PHYSICAL_TYPE type) { return !IsAmong(kOnlyRead, type); }

bool IsErasable(IMAPI_MEDIA_PHYSICAL_TYPE type) { return IsAmong(kErasable, type); }

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
    constexpr quint32 kDvd = 680;
    constexpr quint32 kBluRay = 2195;
    if (type == Unknown) {
        return 0;
    }
    if (IsAmong(kCds, type)) {
        return kCd;
    }
    return IsAmong(kBluRays, type) ? kBluRay : kDvd;
}

} // namespace velmora::drive
