// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/SumsList.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

namespace velmora::image {

namespace {

constexpr std::string_view kBetween = "  ";

/// As sha256sum writes a name that would break its line.
std::string Escaped(std::string_view path)
{
    std::string escaped;
    for (const char sign : path) {
        switch (sign) {
        case '\\':
            escaped += "\\\\";
            break;
        case '\n':
            escaped += "\\n";
            break;
        case '\r':
            escaped += "\\r";
            break;
        default:
            escaped += sign;
        }
    }
    return escaped;
}

std::string Hex(const FileSum& sum)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    for (const std::byte byte : sum) {
        const auto value = std::to_integer<unsigned>(byte);
        hex += kDigits[value >> 4U];
        hex += kDigits[value & 0xFU];
    }
    return hex;
}

std::string Line(std::string_view path, const FileSum& sum)
{
    const std::string escaped = Escaped(path);
    std::string line(escaped.size() == path.size() ? "" : "\\");
    line += Hex(sum);
    line += kBetween;
    line += escaped;
    line += '\n';
    return line;
}

} // namespace

SumsList::SumsList(const SourceTree& source, const NamedTree& tree, ReadName readName)
    : source_(source)
    , tree_(tree)
    , readName_(std::move(readName))
    , starts_(1)
{
    starts_.reserve(tree.directories.size() + 1);
    for (std::uint32_t directory = 0; directory < tree.directories.size(); ++directory) {
        starts_.push_back(starts_.back() + LengthOf(directory));
    }
}

bool SumsList::IsListed(const NamedEntry& entry) const
{
    return source_[entry.node].kind == NodeKind::File && entry.node != source_.MadeFile();
}

/// With '/' at its end; of the root, nothing.
std::string SumsList::PathOf(std::uint32_t directory) const
{
    std::string path;
    for (; directory != 0; directory = tree_.directories[directory].parent) {
        const NamedDirectory& facts = tree_.directories[directory];
        path.insert(0, readName_({facts.node, facts.name}) + '/');
    }
    return path;
}

std::uint64_t SumsList::LengthOf(std::uint32_t directory) const
{
    static constexpr FileSum kAny {};
    return LinesOf(directory, [](NodeId) -> const FileSum& { return kAny; }).size();
}

std::string SumsList::LinesOf(std::uint32_t directory, const SumOf& sumOf) const
{
    const NamedDirectory& facts = tree_.directories[directory];
    const std::string path = PathOf(directory);
    std::string lines;
    for (const NamedEntry& entry :
        std::span(tree_.entries).subspan(facts.firstEntry, facts.entryCount)) {
        if (IsListed(entry)) {
            lines += Line(path + readName_(entry), sumOf(entry.node));
        }
    }
    return lines;
}

void SumsList::Render(Window& window, std::uint64_t place, const SumOf& sumOf) const
{
    const std::uint64_t from = std::max(window.Begin(), place) - place;
    const auto next = std::ranges::upper_bound(starts_, from);
    auto directory = static_cast<std::uint32_t>(next - starts_.begin()) - 1;
    for (; directory + 1 < starts_.size() && place + starts_[directory] < window.End();
         ++directory) {
        window.Put(place + starts_[directory], LinesOf(directory, sumOf));
    }
}

} // namespace velmora::image
