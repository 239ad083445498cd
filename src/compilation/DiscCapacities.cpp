// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/DiscCapacities.h"

#include <array>
#include <span>

namespace velmora::compilation {

namespace {

constexpr std::array kBd {25000000000.0, 50000000000.0};
constexpr std::array kDvd {4700000000.0, 8500000000.0};
constexpr std::array kCd {640000000.0, 700000000.0, 800000000.0};

std::optional<double> At(std::span<const double> capacities, qint16 index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= capacities.size()) {
        return std::nullopt;
    }
    return capacities[static_cast<std::size_t>(index)];
}

} // namespace

std::optional<double> CapacityOfFormat(shell::DiscFormat format)
{
    switch (format) {
    case shell::DiscFormat::BluRay:
        return kBd.front();
    case shell::DiscFormat::Dvd:
        return kDvd.front();
    case shell::DiscFormat::Cd:
        return kCd.front();
    case shell::DiscFormat::InDrive:
        break;
    }
    return std::nullopt;
}

std::optional<double> CapacityOfBdOption(qint16 index) { return At(kBd, index); }

std::optional<double> CapacityOfDvdOption(qint16 index) { return At(kDvd, index); }

std::optional<double> CapacityOfCdOption(qint16 index) { return At(kCd, index); }

} // namespace velmora::compilation
