// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/MountTable.h"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace velmora::drive {

std::string PathInMountTable(std::string_view field)
{
    constexpr std::size_t kDigits = 3;
    constexpr int kOctal = 8;
    std::string path;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const std::string_view digits = field.substr(i + 1, kDigits);
        unsigned char byte = 0;
        const auto [end, error]
            = std::from_chars(digits.data(), digits.data() + digits.size(), byte, kOctal);
        const bool isEscape = field[i] == '\\' && digits.size() == kDigits
            && end == digits.data() + kDigits && error == std::errc();
        path += isEscape ? static_cast<char>(byte) : field[i];
        i += isEscape ? kDigits : 0;
    }
    return path;
}

} // namespace velmora::drive
