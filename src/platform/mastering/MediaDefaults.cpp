// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/MediaDefaults.h"

#include <algorithm>
#include <array>

namespace velmora::mastering {

namespace {

using image::UdfRevision;
using enum drive::IMAPI_MEDIA_PHYSICAL_TYPE;

constexpr MediaDefaults Dvd(qint32 nominalBlocks)
{
    return {drive::FsiFileSystems::All, UdfRevision::Udf102, nominalBlocks};
}

constexpr MediaDefaults kCd {
    drive::FsiFileSystems::Iso9660AndJoliet, UdfRevision::Udf102, 404'850}; // 90 minutes
constexpr MediaDefaults kBluRay {
    drive::FsiFileSystems::Udf, UdfRevision::Udf250, 24'438'784}; // two layers
constexpr MediaDefaults kAnySize {drive::FsiFileSystems::Udf, UdfRevision::Udf250, 0};

struct MediumRoom {
    drive::IMAPI_MEDIA_PHYSICAL_TYPE type;
    MediaDefaults defaults;
};

constexpr std::array kEntries {
    MediumRoom {CdRom, kCd},
    MediumRoom {CdR, kCd},
    MediumRoom {CdRw, kCd},
    MediumRoom {DvdRom, Dvd(2'295'104)},
    MediumRoom {DvdRam, Dvd(2'236'704)},
    MediumRoom {DvdPlusR, Dvd(2'295'104)},
    MediumRoom {DvdPlusRw, Dvd(2'295'104)},
    MediumRoom {DvdPlusRDualLayer, Dvd(4'173'824)},
    MediumRoom {DvdDashR, Dvd(2'298'496)},
    MediumRoom {DvdDashRw, Dvd(2'298'496)},
    MediumRoom {DvdDashRDualLayer, Dvd(4'171'712)},
    MediumRoom {Disk, kAnySize},
    MediumRoom {DvdPlusRwDualLayer, Dvd(4'173'824)},
    MediumRoom {HdDvdRom, kBluRay}, // the other disc of the blue laser
    MediumRoom {HdDvdR, kBluRay},
    MediumRoom {HdDvdRam, kBluRay},
    MediumRoom {BdRom, kBluRay},
    MediumRoom {BdR, kBluRay},
    MediumRoom {BdRe, kBluRay},
};

} // namespace

std::optional<MediaDefaults> DefaultsFor(drive::IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const auto* found = std::ranges::find(kEntries, type, &MediumRoom::type);
    if (found == kEntries.end()) {
        return std::nullopt;
    }
    return found->defaults;
}

} // namespace velmora::mastering
