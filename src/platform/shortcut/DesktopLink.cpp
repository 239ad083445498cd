// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shortcut/DesktopLink.h"

#include <algorithm>

namespace velmora::shortcut {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trimmed(std::string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
    text.remove_prefix(begin);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string_view TakeLine(std::string_view& text)
{
    const std::size_t length = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return Trimmed(line);
}

/// The character that a backslash and this one encode; none if it isn't an escape.
std::optional<char> Escaped(char letter)
{
    switch (letter) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case '\\':
        return '\\';
    default:
        return std::nullopt;
    }
}

std::string Unescaped(std::string_view value)
{
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool mayBeEscape = value[i] == '\\' && i + 1 < value.size();
        const std::optional<char> escaped = mayBeEscape ? Escaped(value[i + 1]) : std::nullopt;
        text += escaped.value_or(value[i]);
        i += escaped ? 1 : 0;
    }
    return text;
}

/// The value of a key in the entry's own group, which is the first; none if missing.
std::optional<std::string_view> ValueOf(std::string_view entry, std::string_view key)
{
    bool isInGroup = false;
    while (!entry.empty()) {
        const std::string_view line = TakeLine(entry);
        if (line.starts_with('[')) {
            if (isInGroup || line != "[Desktop Entry]") {
                return std::nullopt;
            }
            isInGroup = true;
        }
        const std::size_t equals = line.find('=');
        if (isInGroup && equals != std::string_view::npos
            && Trimmed(line.substr(0, equals)) == key) {
            return Trimmed(line.substr(equals + 1));
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> AddressOfDesktopLink(std::string_view entry)
{
    const std::optional<std::string_view> address = ValueOf(entry, "URL");
    if (ValueOf(entry, "Type") != "Link" || !address) {
        return std::nullopt;
    }
    return Unescaped(*address);
}

} // namespace velmora::shortcut
