// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/Medium.h"

#include <array>

namespace velmora::terminal {

namespace {

using image::FileSystems;
using image::UdfRevision;

constexpr FileSystems kAll {};
constexpr FileSystems kWithoutUdf {.iso9660 = true, .joliet = true, .udf = false};
constexpr FileSystems kUdfAlone {.iso9660 = false, .joliet = false, .udf = true};

constexpr std::array kMedia {
    Medium {MediumKind::Cd, "cd", "CD", 404850, kWithoutUdf, UdfRevision::Udf102},
    Medium {MediumKind::Dvd, "dvd", "DVD", 2295104, kAll, UdfRevision::Udf102},
    Medium {MediumKind::DvdDualLayer,
        "dvd-dl",
        "DVD double couche",
        4171712,
        kAll,
        UdfRevision::Udf102},
    Medium {MediumKind::BluRay, "bd", "Blu-ray", 12219392, kUdfAlone, UdfRevision::Udf250},
    Medium {MediumKind::BluRayDualLayer,
        "bd-dl",
        "Blu-ray double couche",
        24438784,
        kUdfAlone,
        UdfRevision::Udf250},
};

} // namespace

std::span<const Medium> Media() { return kMedia; }

const Medium* FindMedium(std::string_view option)
{
    for (const Medium& medium : kMedia) {
        if (medium.option == option) {
            return &medium;
        }
    }
    return nullptr;
}

const Medium* SmallestMedium(std::uint64_t sectors)
{
    for (const Medium& medium : kMedia) {
        if (medium.sectors >= sectors) {
            return &medium;
        }
    }
    return nullptr;
}

} // namespace velmora::terminal
