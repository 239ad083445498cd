// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/arguments/Reply.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velmora::terminal {

/// One of the words that an option takes, and what it means.
template <class Value> struct Word {
    std::string_view word;
    Value value;
};

/// "a, b ou c"
template <class Value> std::string ListOf(std::span<const Word<Value>> words)
{
    std::string list;
    for (const auto& [word, value] : words) {
        if (!list.empty()) {
            list += word == words.back().word ? " ou " : ", ";
        }
        list += word;
    }
    return list;
}

/// Reads an option that takes one of a few words; an option that wasn't given doesn't change the
/// value.
/// @return what is wrong with the word
template <class Value, class Target>
std::optional<Reply> ReadWord(std::string_view command,
    std::string_view option,
    const std::optional<std::string>& typed,
    std::span<const Word<Value>> words,
    Target& value)
{
    if (!typed) {
        return std::nullopt;
    }
    const auto found = std::ranges::find(words, *typed, &Word<Value>::word);
    if (found == words.end()) {
        return NotAmong(command, option, *typed, ListOf(words));
    }
    value = found->value;
    return std::nullopt;
}

} // namespace velmora::terminal
