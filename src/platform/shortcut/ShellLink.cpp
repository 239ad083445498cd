// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shortcut/ShellLink.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace velmora::shortcut {

namespace {

using Bytes = std::span<const std::byte>;

// ShellLinkHeader ([MS-SHLLINK] 2.1)
constexpr std::uint32_t kHeaderSize = 76;
constexpr std::array<std::uint8_t, 16> kClassId {
    0x01, 0x14, 0x02, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
constexpr std::size_t kClassIdAt = 4;
constexpr std::size_t kFlagsAt = 20;

// LinkFlags (2.1.1)
constexpr std::uint32_t kHasLinkTargetIdList = 0x1;
constexpr std::uint32_t kHasLinkInfo = 0x2;
constexpr std::uint32_t kHasName = 0x4;
constexpr std::uint32_t kHasRelativePath = 0x8;
constexpr std::uint32_t kIsUnicode = 0x80;

// LinkInfo (2.3)
constexpr std::size_t kInfoHeaderSizeAt = 4;
constexpr std::size_t kInfoFlagsAt = 8;
constexpr std::size_t kLocalBasePathAt = 16;
constexpr std::size_t kCommonPathSuffixAt = 24;
constexpr std::size_t kLocalBasePathUnicodeAt = 28;
constexpr std::size_t kCommonPathSuffixUnicodeAt = 32;
constexpr std::uint32_t kInfoHeaderWithUnicode = 36;
constexpr std::uint32_t kVolumeIdAndLocalBasePath = 0x1;

std::optional<std::uint32_t> Number(Bytes bytes, std::size_t at, std::size_t size)
{
    if (at > bytes.size() || bytes.size() - at < size) {
        return std::nullopt;
    }
    std::uint32_t number = 0;
    for (std::size_t i = size; i > 0; --i) {
        number = number << 8 | std::to_integer<std::uint32_t>(bytes[at + i - 1]);
    }
    return number;
}

std::optional<std::uint32_t> Number16(Bytes bytes, std::size_t at) { return Number(bytes, at, 2); }
std::optional<std::uint32_t> Number32(Bytes bytes, std::size_t at) { return Number(bytes, at, 4); }

/// One byte a character, as the Western code pages of Windows mostly agree with Latin-1.
QString NarrowText(Bytes bytes)
{
    QString text;
    for (const std::byte byte : bytes) {
        text += QChar(std::to_integer<char16_t>(byte));
    }
    return text;
}

QString WideText(Bytes bytes)
{
    QString text;
    for (std::size_t i = 0; i + 2 <= bytes.size(); i += 2) {
        text += QChar(static_cast<char16_t>(*Number16(bytes, i)));
    }
    return text;
}

QString UpToNul(const QString& text)
{
    const qsizetype end = text.indexOf(QChar::Null);
    return end < 0 ? text : text.first(end);
}

/// The NUL-terminated text at the offset that is stored at `offsetAt`; none when there is no
/// offset.
std::optional<QString> TextIn(Bytes info, std::size_t offsetAt, bool isWide)
{
    const std::optional<std::uint32_t> offset = Number32(info, offsetAt);
    if (!offset || *offset == 0 || *offset >= info.size()) {
        return std::nullopt;
    }
    const Bytes rest = info.subspan(*offset);
    const QString text = isWide ? WideText(rest) : NarrowText(rest);
    return text.contains(QChar::Null) ? std::optional(UpToNul(text)) : std::nullopt;
}

/// The local path in a LinkInfo, in its wide form when it has one.
QString LocalPathIn(Bytes info)
{
    const std::uint32_t flags = Number32(info, kInfoFlagsAt).value_or(0);
    if ((flags & kVolumeIdAndLocalBasePath) == 0) {
        return {};
    }
    const bool mayBeWide = Number32(info, kInfoHeaderSizeAt).value_or(0) >= kInfoHeaderWithUnicode;
    const std::optional<QString> wide
        = mayBeWide ? TextIn(info, kLocalBasePathUnicodeAt, true) : std::nullopt;
    if (wide) {
        return *wide + TextIn(info, kCommonPathSuffixUnicodeAt, true).value_or(QString());
    }
    const std::optional<QString> narrow = TextIn(info, kLocalBasePathAt, false);
    return narrow ? *narrow + TextIn(info, kCommonPathSuffixAt, false).value_or(QString())
                  : QString();
}

/// Goes through the parts of a link after its header, one by one.
class Parts {
public:
    Parts(Bytes rest, bool isUnicode)
        : rest_(rest)
        , isUnicode_(isUnicode)
    {
    }

    /// Skips a part that begins with its length in 16 bits, not counting these.
    bool PassIdList()
    {
        const std::optional<std::uint32_t> size = Number16(rest_, 0);
        return size && Take(2 + *size);
    }

    /// A part that begins with its length in 32 bits, counting these.
    std::optional<Bytes> TakeInfo()
    {
        const std::optional<std::uint32_t> size = Number32(rest_, 0);
        return size ? Take(std::max<std::size_t>(4, *size)) : std::nullopt;
    }

    /// A text preceded by its count of characters.
    std::optional<QString> TakeText()
    {
        const std::optional<std::uint32_t> count = Number16(rest_, 0);
        const std::optional<Bytes> part
            = count ? Take(2 + *count * (isUnicode_ ? 2 : 1)) : std::nullopt;
        if (!part) {
            return std::nullopt;
        }
        const Bytes characters = part->subspan(2);
        return isUnicode_ ? WideText(characters) : NarrowText(characters);
    }

private:
    std::optional<Bytes> Take(std::size_t size)
    {
        if (size > rest_.size()) {
            return std::nullopt;
        }
        const Bytes part = rest_.first(size);
        rest_ = rest_.subspan(size);
        return part;
    }

    Bytes rest_;
    bool isUnicode_;
};

bool IsShellLink(Bytes bytes)
{
    return bytes.size() >= kHeaderSize && Number32(bytes, 0) == kHeaderSize
        && std::ranges::equal(
            bytes.subspan(kClassIdAt, kClassId.size()), std::as_bytes(std::span(kClassId)));
}

} // namespace

std::optional<ShellLink> ReadShellLink(Bytes bytes)
{
    if (!IsShellLink(bytes)) {
        return std::nullopt;
    }
    const std::uint32_t flags = *Number32(bytes, kFlagsAt);
    Parts parts(bytes.subspan(kHeaderSize), (flags & kIsUnicode) != 0);
    if ((flags & kHasLinkTargetIdList) != 0 && !parts.PassIdList()) {
        return std::nullopt;
    }
    ShellLink link;
    if ((flags & kHasLinkInfo) != 0) {
        const std::optional<Bytes> info = parts.TakeInfo();
        if (!info) {
            return std::nullopt;
        }
        link.localBasePath = LocalPathIn(*info);
    }
    if ((flags & kHasName) != 0 && !parts.TakeText()) {
        return std::nullopt;
    }
    if ((flags & kHasRelativePath) != 0) {
        const std::optional<QString> relativePath = parts.TakeText();
        if (!relativePath) {
            return std::nullopt;
        }
        link.relativePath = UpToNul(*relativePath);
    }
    return link;
}

} // namespace velmora::shortcut
