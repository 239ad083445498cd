// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/IsoNames.h"

#include "image/names/PlainLetters.h"
#include "unicode/Unicode.h"

#include <algorithm>
#include <array>

namespace velmora::image {

namespace {

constexpr std::size_t kMaxKeptExtension = 12; // of 30; the rest is the name's

/// What becomes of each ASCII character: d-characters and the dot stay.
constexpr std::array<char, 128> kAsciiForms = [] {
    std::array<char, 128> forms {};
    forms.fill('_');
    forms['.'] = '.';
    for (std::size_t digit = 0; digit < 10; ++digit) {
        forms['0' + digit] = static_cast<char>('0' + digit);
    }
    for (std::size_t letter = 0; letter < 26; ++letter) {
        forms['A' + letter] = static_cast<char>('A' + letter);
        forms['a' + letter] = static_cast<char>('A' + letter);
    }
    return forms;
}();

char UpperCase(char c) { return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c); }

void AppendUpper(std::string& text, const char* letters)
{
    for (; *letters != '\0'; ++letters) {
        text += UpperCase(*letters);
    }
}

void ReplaceDots(std::string& text) { std::replace(text.begin(), text.end(), '.', '_'); }

} // namespace

std::string ToDCharacters(std::string_view utf8)
{
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = unicode::NextCodePoint(utf8, at);
        if (c < kAsciiForms.size()) { // nearly all of them
            text += kAsciiForms[c];
        } else if (const char* plain = PlainLetters(c)) {
            AppendUpper(text, plain);
        } else {
            text += '_';
        }
    }
    return text;
}

std::string IsoNames::Build(std::string_view source, NameOf kind, const std::string& tail) const
{
    const bool isShort = length_ == Length::EightDotThree;
    std::string name = ToDCharacters(source);
    std::string extension;
    const std::size_t dot = name.rfind('.');
    if (kind == NameOf::File && dot != std::string::npos && dot != 0) {
        extension = name.substr(dot + 1, isShort ? 3 : kMaxKeptExtension);
        name.resize(dot);
    }
    ReplaceDots(name);
    const std::size_t whole = kind == NameOf::Directory ? 31 : 30 - extension.size();
    name.resize(std::min(name.size(), (isShort ? 8 : whole) - tail.size()));
    name += tail;
    if (name.empty()) {
        name += '_';
    }
    if (kind == NameOf::File) {
        name += '.';
        name += extension;
    }
    return name;
}

std::string IsoNames::Form(std::string_view source, NameOf kind) const
{
    return Build(source, kind, {});
}

std::string IsoNames::Numbered(std::string_view source, NameOf kind, unsigned n) const
{
    return Build(source, kind, NumberTail(n));
}

std::string_view IsoNames::Key(std::string_view form) const
{
    return form.ends_with('.') ? form.substr(0, form.size() - 1) : form;
}

std::string IsoNames::Readable(std::string_view form) const { return std::string(Key(form)); }

bool IsoNames::IsKept(std::string_view form, std::string_view source) const
{
    return Key(form) == source;
}

bool IsoNames::IsNearlyKept(std::string_view form, std::string_view source) const
{
    return std::ranges::equal(Key(form), source, {}, {}, UpperCase);
}

} // namespace velmora::image
