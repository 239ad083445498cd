// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/platform/drives/DriveBench.h"

#include <initializer_list>

namespace velmora::test {

inline constexpr qint64 kFaultSectors = 2000;

using Profiles = std::initializer_list<std::uint16_t>;

/// Writes that fail.
class WriteFaultBench : public DriveBench {
protected:
    /// Neither the drive nor the library is left in a state that blocks the next disc.
    void ExpectUsableAgain()
    {
        Insert(0x1B);
        Fault([](mmc::Faults& faults) { faults = {}; });
        Write(OrderOf(kFaultSectors, 7));
        EXPECT_EQ(emulated.Sectors(0, kFaultSectors), SectorsOf(kFaultSectors, 7));
    }
};

} // namespace velmora::test
