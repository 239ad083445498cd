// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Bytes.h"
#include "tests/mmc/Target.h"

namespace velmora::mmc {

namespace {

// SPC-4, 4.5.3
std::vector<std::uint8_t> FixedBytes(const Outcome& outcome)
{
    std::vector<std::uint8_t> bytes(18);
    bytes[0] = 0x70;
    bytes[2] = outcome.sense->key;
    bytes[7] = 10;
    bytes[12] = outcome.sense->code;
    bytes[13] = outcome.sense->qualifier;
    if (outcome.progress >= 0) {
        bytes[15] = 0x80;
        Put16(bytes, 16, outcome.progress);
    }
    return bytes;
}

// SPC-4, 4.5.2, and 4.5.2.4 for the progress
std::vector<std::uint8_t> DescriptorBytes(const Outcome& outcome, std::uint8_t responseCode)
{
    constexpr std::size_t kHeader = 8;
    constexpr std::size_t kProgress = 8;
    std::vector<std::uint8_t> bytes(kHeader + (outcome.progress >= 0 ? kProgress : 0));
    bytes[0] = responseCode;
    bytes[1] = outcome.sense->key;
    bytes[2] = outcome.sense->code;
    bytes[3] = outcome.sense->qualifier;
    if (outcome.progress >= 0) {
        bytes[7] = kProgress;
        bytes[8] = 0x02;
        bytes[9] = 0x06;
        bytes[12] = 0x80;
        Put16(bytes, 13, outcome.progress);
    }
    return bytes;
}

} // namespace

std::vector<std::uint8_t> SenseBytes(const Outcome& outcome, SenseForm form)
{
    constexpr std::size_t kShort = 8;
    std::vector<std::uint8_t> bytes = FixedBytes(outcome);
    switch (form) {
    case SenseForm::Short:
        bytes.resize(kShort);
        bytes[7] = 0;
        return bytes;
    case SenseForm::Descriptor:
        return DescriptorBytes(outcome, 0x72);
    case SenseForm::Deferred:
        return DescriptorBytes(outcome, 0x73);
    default:
        return bytes;
    }
}

} // namespace velmora::mmc
