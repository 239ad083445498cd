// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"

#include <cstddef>
#include <vector>

namespace velmora::test {

/// The contents of recorded discs in tests: sectors without a single zero.
inline std::vector<std::byte> SampleSectors(const runtime::Clock& /*clock*/)
{
    constexpr std::size_t kSectors = 192;
    constexpr std::size_t kBytes = 2048;
    return std::vector<std::byte>(kSectors * kBytes, std::byte {'v'});
}

} // namespace velmora::test
