// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/FileUri.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace velmora::text {

namespace {

constexpr std::string_view kLineEnds = "\r\n";

bool IsSameIgnoringCase(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, [](unsigned char a, unsigned char b) {
        return std::tolower(a) == std::tolower(b);
    });
}

bool TakeFront(std::string_view& text, std::string_view front)
{
    if (!IsSameIgnoringCase(text.substr(0, front.size()), front)) {
        return false;
    }
    text.remove_prefix(front.size());
    return true;
}

/// The byte that "%XX" at the start of the text encodes.
std::optional<char> EscapedByte(std::string_view text)
{
    unsigned char byte = 0;
    if (text.size() < 3 || text[0] != '%') {
        return std::nullopt;
    }
    const char* const end = text.data() + 3;
    const auto read = std::from_chars(text.data() + 1, end, byte, 16);
    return read.ptr == end ? std::optional(static_cast<char>(byte)) : std::nullopt;
}

std::string Unescaped(std::string_view text)
{
    std::string bytes;
    while (!text.empty()) {
        const std::optional<char> escaped = EscapedByte(text);
        bytes += escaped.value_or(text[0]);
        text.remove_prefix(escaped ? 3 : 1);
    }
    return bytes;
}

} // namespace

std::optional<NativePath> NativePathOfUri(std::string_view uri)
{
    if (!TakeFront(uri, "file:")) {
        return std::nullopt;
    }
    if (uri.starts_with("//")) {
        uri.remove_prefix(2);
        TakeFront(uri, "localhost");
    }
    std::string path = Unescaped(uri);
    if (!path.starts_with('/') || path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    return NativePath(std::move(path));
}

std::vector<std::string_view> AddressesOf(std::string_view uriList)
{
    std::vector<std::string_view> addresses;
    while (!uriList.empty()) {
        const std::size_t length = std::min(uriList.find_first_of(kLineEnds), uriList.size());
        const std::string_view line = uriList.substr(0, length);
        if (!line.empty() && !line.starts_with('#')) {
            addresses.push_back(line);
        }
        uriList.remove_prefix(std::min(length + 1, uriList.size()));
    }
    return addresses;
}

} // namespace velmora::text
