// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/NameHazards.h"

#include "unicode/Unicode.h"

#include <algorithm>
#include <clocale>
#include <cwctype>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

namespace velmora::image {

namespace {

constexpr std::size_t kMostOfName = 253;  // bytes
constexpr std::size_t kMostOfPath = 1023; // bytes

bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }

char Lower(char c) { return static_cast<char>(IsCapital(c) ? c - 'A' + 'a' : c); }

/// Whether a name is plain ASCII without capitals, so that it has one case only: nearly all are.
bool HasOneCase(std::string_view name)
{
    unsigned others = 0;
    for (const char c : name) {
        others |= static_cast<unsigned>(IsCapital(c)) | static_cast<unsigned char>(c) >> 7U;
    }
    return others == 0;
}

/// Folds names to one case, whatever the user's language.
class CaseFold {
public:
    /// A number for a name that is the same in any case: enough to tell millions apart.
    std::uint64_t MarkOf(std::string_view name)
    {
        if (unicode::IsAscii(name)) {
            text_.resize(name.size());
            std::ranges::transform(name, text_.begin(), Lower);
        } else {
            text_.clear();
            for (std::size_t at = 0; at < name.size();) {
                Append(unicode::NextCodePoint(name, at));
            }
        }
        return std::hash<std::string_view> {}(text_);
    }

private:
    void Append(char32_t c)
    {
        static const locale_t letters = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        if (c < 0x80) {
            text_ += Lower(static_cast<char>(c));
            return;
        }
        const bool hasCase = letters != nullptr && c != unicode::kUndecodable;
        unicode::AppendUtf8(text_,
            hasCase ? static_cast<char32_t>(::towlower_l(static_cast<wint_t>(c), letters)) : c);
    }

    std::string text_; // its room serves all names
};

std::span<const NamedEntry> EntriesOf(const NamedTree& named, const NamedDirectory& directory)
{
    return std::span(named.entries).subspan(directory.firstEntry, directory.entryCount);
}

/// The entries of one directory, as readers of the disc see them.
class DirectoryView {
public:
    DirectoryView(const SourceTree& source, const NamedTree& named, const NameRules& rules)
        : source_(source)
        , named_(named)
        , rules_(rules)
    {
    }

    void AddHazards(const NamedDirectory& directory, std::vector<HazardousName>& hazards)
    {
        bool mayHaveTwins = false; // different names in one case aren't twins
        for (const NamedEntry& entry : EntriesOf(named_, directory)) {
            const std::string_view name = source_.Name(entry.node);
            mayHaveTwins = mayHaveTwins || !entry.HasSourceName() || !HasOneCase(name);
            if (name.starts_with('.') && name.find_first_not_of('.') == std::string_view::npos) {
                hazards.push_back({HazardKind::DotsOnly, source_.ImagePath(entry.node)});
            }
        }
        if (mayHaveTwins) {
            AddTwins(directory, hazards);
        }
    }

private:
    void AddTwins(const NamedDirectory& directory, std::vector<HazardousName>& hazards)
    {
        marks_.clear();
        for (const NamedEntry& entry : EntriesOf(named_, directory)) {
            marks_.emplace_back(MarkOf(entry), entry.node);
        }
        std::ranges::sort(marks_);
        for (std::size_t i = 0; i < marks_.size(); ++i) {
            if (HasTwin(i)) {
                hazards.push_back({HazardKind::CaseTwin, source_.ImagePath(marks_[i].second)});
            }
        }
    }

    std::uint64_t MarkOf(const NamedEntry& entry)
    {
        const std::string_view name = source_.Name(entry.node);
        if (entry.HasSourceName()) {
            return fold_.MarkOf(name);
        }
        const std::string_view form = named_.names[entry.name];
        return fold_.MarkOf(rules_.IsKept(form, name) ? name : rules_.Readable(form));
    }

    bool HasTwin(std::size_t i) const
    {
        const std::uint64_t mark = marks_[i].first;
        return (i > 0 && marks_[i - 1].first == mark)
            || (i + 1 < marks_.size() && marks_[i + 1].first == mark);
    }

    const SourceTree& source_;
    const NamedTree& named_;
    const NameRules& rules_;
    CaseFold fold_;
    std::vector<std::pair<std::uint64_t, NodeId>> marks_;
};

} // namespace

std::string Describe(HazardKind kind)
{
    switch (kind) {
    case HazardKind::CaseTwin:
        return "Ce nom ne diffère d'un autre que par les majuscules : Windows n'ouvre que l'un des "
               "deux.";
    case HazardKind::DotsOnly:
        return "Ce nom n'est fait que de points : Windows ne l'ouvre pas.";
    case HazardKind::LongName:
        return "Ce nom a plus de 253 octets : Linux le montre coupé en ISO 9660.";
    case HazardKind::LongPath:
        break;
    }
    return "Ce chemin a plus de 1 023 octets, le plus qu'UDF prévoie : certains lecteurs ne le "
           "trouvent pas.";
}

void AddHazardsOfWindows(const SourceTree& source,
    const NamedTree& named,
    const NameRules& rules,
    const std::stop_token& stop,
    std::vector<HazardousName>& hazards)
{
    DirectoryView view(source, named, rules);
    for (const NamedDirectory& directory : named.directories) {
        if (stop.stop_requested()) {
            return;
        }
        view.AddHazards(directory, hazards);
    }
}

void AddLongNames(
    const SourceTree& source, const NamedTree& named, std::vector<HazardousName>& hazards)
{
    for (const NamedEntry& entry : named.entries) {
        if (source.Name(entry.node).size() > kMostOfName) {
            hazards.push_back({HazardKind::LongName, source.ImagePath(entry.node)});
        }
    }
}

/// The length of a path is that of its identifiers and of the separators between them.
void AddLongPaths(
    const SourceTree& source, const NamedTree& named, std::vector<HazardousName>& hazards)
{
    std::vector<std::size_t> lengths {0}; // of each directory's path and the separator after it
    lengths.reserve(named.directories.size());
    for (std::size_t number = 1; number < named.directories.size(); ++number) {
        const NamedDirectory& directory = named.directories[number];
        lengths.push_back(lengths[directory.parent] + named.FormOf(directory).Size() + 1);
    }
    for (std::size_t number = 0; number < named.directories.size(); ++number) {
        if (lengths[number] + SourceTree::kMaxNameLength <= kMostOfPath) {
            continue; // nothing in it can be too long
        }
        for (const NamedEntry& entry : EntriesOf(named, named.directories[number])) {
            if (lengths[number] + named.FormOf(entry).Size() > kMostOfPath) {
                hazards.push_back({HazardKind::LongPath, source.ImagePath(entry.node)});
            }
        }
    }
}

} // namespace velmora::image
