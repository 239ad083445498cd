// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/Medium.h"

#include "drive/DiscKinds.h"

#include <array>

namespace velmora::terminal {

namespace {

using drive::FsiFileSystems;
using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
namespace capacity = drive::capacity;

/// @param type  the kind of disc whose readers it is made for
Medium Row(MediumKind kind,
    std::string_view option,
    std::string_view name,
    IMAPI_MEDIA_PHYSICAL_TYPE type,
    qint64 sectors,
    qint64 formattedSectors = 0)
{
    const drive::DiscKind& disc = *drive::FindDiscKind(type);
    const bool is102 = disc.udf == drive::UdfLevel::Udf102;
    return {.kind = kind,
        .option = option,
        .name = name,
        .sectors = static_cast<std::uint32_t>(sectors),
        .formattedSectors = static_cast<std::uint32_t>(formattedSectors),
        .isRare = sectors == capacity::kCd90,
        .fileSystems = {.iso9660 = drive::Holds(disc.fileSystems, FsiFileSystems::Iso9660),
            .joliet = drive::Holds(disc.fileSystems, FsiFileSystems::Joliet),
            .udf = drive::Holds(disc.fileSystems, FsiFileSystems::Udf)},
        .udfRevision = is102 ? image::UdfRevision::Udf102 : image::UdfRevision::Udf250};
}

} // namespace

std::span<const Medium> Media()
{
    using enum IMAPI_MEDIA_PHYSICAL_TYPE;
    // For each kind the smallest disc that is sold under its name; CDs of 74 minutes no longer are.
    static const std::array kMedia {
        Row(MediumKind::Cd, "cd", "CD", CdR, capacity::kCd80),
        Row(MediumKind::Cd, "cd-90", "CD de 90 minutes", CdR, capacity::kCd90),
        Row(MediumKind::Dvd, "dvd", "DVD", DvdPlusR, capacity::kDvdPlusR),
        Row(MediumKind::DvdDualLayer,
            "dvd-dl",
            "DVD double couche",
            DvdDashRDualLayer,
            capacity::kDvdDashRDualLayer),
        Row(MediumKind::BluRay,
            "bd",
            "Blu-ray",
            BdR,
            capacity::kBluRay,
            capacity::kBluRayFormatted),
        Row(MediumKind::BluRayDualLayer,
            "bd-dl",
            "Blu-ray double couche",
            BdR,
            capacity::kBluRayDualLayer,
            capacity::kBluRayDualLayerFormatted),
    };
    return kMedia;
}

const Medium* SmallestMedium(std::uint64_t sectors)
{
    for (const Medium& medium : Media()) {
        if (!medium.isRare && medium.sectors >= sectors) {
            return &medium;
        }
    }
    return nullptr;
}

} // namespace velmora::terminal
