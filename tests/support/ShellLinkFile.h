// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <string>

namespace velmora::test {

/// Makes the bytes of a shell link ([MS-SHLLINK]) with the parts that are given.
struct ShellLinkFile {
    std::string idList {};
    std::string localBasePath {};
    std::string commonPathSuffix {};
    QString localBasePathUnicode {};
    QString name {};
    QString relativePath {};
    bool isUnicode = true;
    std::optional<std::uint32_t> localBasePathOffset {}; ///< instead of the right one
    std::optional<std::uint32_t> infoSize {};            ///< instead of the right one

    std::string Bytes() const
    {
        const std::uint32_t flags = (idList.empty() ? 0U : 0x1U)
            | (localBasePath.empty() ? 0U : 0x2U) | (name.isEmpty() ? 0U : 0x4U)
            | (relativePath.isEmpty() ? 0U : 0x8U) | (isUnicode ? 0x80U : 0U);
        std::string bytes = Number(76, 4)
            + std::string("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16) + Number(flags, 4)
            + std::string(52, '\0');
        if (!idList.empty()) {
            bytes += Number(static_cast<std::uint32_t>(idList.size()), 2) + idList;
        }
        if (!localBasePath.empty()) {
            bytes += Info();
        }
        return bytes + Counted(name) + Counted(relativePath);
    }

private:
    static std::string Number(std::uint32_t number, int size)
    {
        std::string bytes;
        for (int i = 0; i < size; ++i) {
            bytes += static_cast<char>(number >> (8 * i) & 0xFF);
        }
        return bytes;
    }

    std::string Characters(const QString& text, bool isWide) const
    {
        std::string bytes;
        for (const QChar c : text) {
            bytes += Number(c.unicode(), isWide ? 2 : 1);
        }
        return bytes;
    }

    std::string Counted(const QString& text) const
    {
        return text.isEmpty()
            ? std::string()
            : Number(static_cast<std::uint32_t>(text.size()), 2) + Characters(text, isUnicode);
    }

    /// LinkInfo: its header, the local path, the suffix, and the wide path when there is one.
    std::string Info() const
    {
        const bool hasWide = !localBasePathUnicode.isEmpty();
        const std::uint32_t headerSize = hasWide ? 36 : 28;
        const auto suffixAt = static_cast<std::uint32_t>(headerSize + localBasePath.size() + 1);
        const auto wideAt = static_cast<std::uint32_t>(suffixAt + commonPathSuffix.size() + 1);
        const std::string tail = localBasePath + '\0' + commonPathSuffix + '\0'
            + Characters(localBasePathUnicode, true) + std::string(hasWide ? 4 : 0, '\0');
        std::string header = Number(headerSize, 4) + Number(1, 4) + Number(0, 4)
            + Number(localBasePathOffset.value_or(headerSize), 4) + Number(0, 4)
            + Number(suffixAt, 4);
        if (hasWide) {
            const std::uint32_t emptyAt
                = wideAt + 2 * static_cast<std::uint32_t>(localBasePathUnicode.size());
            header += Number(wideAt, 4) + Number(emptyAt, 4);
        }
        const auto size = static_cast<std::uint32_t>(4 + header.size() + tail.size());
        return Number(infoSize.value_or(size), 4) + header + tail;
    }
};

} // namespace velmora::test
