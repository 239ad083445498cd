// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaDefaults.h"

#include <algorithm>
#include <array>

namespace velmora::imapi {

namespace {

using image::UdfRevision;
using enum IMAPI_MEDIA_PHYSICAL_TYPE;

constexpr MediaDefaults Dvd(qint32 nominalBlocks)
{
    return {FsiFileSystems::All, UdfRevision::Udf102, nominalBlocks};
}

constexpr MediaDefaults kCd {
    FsiFileSystems::Iso9660AndJoliet, UdfRevision::Udf102, 404'850}; // 90 minutes
constexpr MediaDefaults kBluRay {
    FsiFileSystems::Udf, UdfRevision::Udf250, 24'438'784}; // two layers
constexpr MediaDefaults kAnySize {FsiFileSystems::Udf, UdfRevision::Udf250, 0};

struct Entry {
    IMAPI_MEDIA_PHYSICAL_TYPE type;
    MediaDefaults defaults;
};

constexpr std::array kEntries {
    Entry {CdRom, kCd},
    Entry {CdR, kCd},
    Entry {CdRw, kCd},
    Entry {DvdRom, Dvd(2'295'104)},
    Entry {DvdRam, Dvd(2'236'704)},
    Entry {DvdPlusR, Dvd(2'295'104)},
    Entry {DvdPlusRw, Dvd(2'295'104)},
    Entry {DvdPlusRDualLayer, Dvd(4'173'824)},
    Entry {DvdDashR, Dvd(2'298'496)},
    Entry {DvdDashRw, Dvd(2'298'496)},
    Entry {DvdDashRDualLayer, Dvd(4'171'712)},
    Entry {Disk, kAnySize},
    Entry {DvdPlusRwDualLayer, Dvd(4'173'824)},
    Entry {HdDvdRom, kBluRay}, // the other disc of the blue laser
    Entry {HdDvdR, kBluRay},
    Entry {HdDvdRam, kBluRay},
    Entry {BdRom, kBluRay},
    Entry {BdR, kBluRay},
    Entry {BdRe, kBluRay},
};

} // namespace

std::optional<MediaDefaults> DefaultsFor(IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const auto* found = std::ranges::find(kEntries, type, &Entry::type);
    if (found == kEntries.end()) {
        return std::nullopt;
    }
    return found->defaults;
}

} // namespace velmora::imapi
