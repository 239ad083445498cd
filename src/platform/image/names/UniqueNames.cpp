// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/UniqueNames.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace velmora::image {

namespace {

NameOf KindOf(const Node& node) { return node.IsDirectory() ? NameOf::Directory : NameOf::File; }

/// The first bytes of a text as a number: one comparison of these orders most texts.
std::uint64_t Beginning(std::string_view text)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < sizeof(number); ++i) {
        number = number << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    }
    return number;
}

/// Sorts by texts, each of which is looked up only once.
template <class KeyOf> void SortBy(std::span<NamedEntry> entries, const KeyOf& keyOf)
{
    struct Keyed {
        std::uint64_t beginning;
        std::string_view key;
        NamedEntry entry;

        bool operator<(const Keyed& other) const
        {
            return beginning != other.beginning ? beginning < other.beginning : key < other.key;
        }
    };
    std::vector<Keyed> keyed;
    keyed.reserve(entries.size());
    for (const NamedEntry& entry : entries) {
        const std::string_view key = keyOf(entry);
        keyed.push_back({Beginning(key), key, entry});
    }
    if (std::is_sorted(keyed.begin(), keyed.end())) {
        return;
    }
    std::sort(keyed.begin(), keyed.end());
    std::transform(
        keyed.begin(), keyed.end(), entries.begin(), [](const Keyed& k) { return k.entry; });
}

/// Hands out forms in one directory so that no two share a key.
class Claims {
public:
    Claims(const SourceTree& source,
        const NameRules& rules,
        NameArena& forms,
        NameArena::Writer& writer)
        : source_(source)
        , rules_(rules)
        , forms_(forms)
        , writer_(writer)
    {
    }

    void Settle(std::span<NamedEntry> entries)
    {
        SortBy(entries, [&](const NamedEntry& entry) { return source_.Name(entry.node); });
        claimed_.reserve(entries.size());
        std::vector<NamedEntry*> waiting;
        for (NamedEntry& entry : entries) {
            waiting.push_back(&entry);
        }
        LetClaim(waiting, &NameRules::IsKept);
        LetClaim(waiting, &NameRules::IsNearlyKept);
        std::erase_if(waiting, [&](const NamedEntry* entry) { return Claim(entry->name); });
        for (NamedEntry* entry : waiting) {
            entry->name = FirstFree(entry->node);
        }
    }

private:
    /// Entries entitled to their form by that rule take it if it is free, and leave the queue.
    void LetClaim(std::vector<NamedEntry*>& waiting,
        bool (NameRules::*isTheirs)(std::string_view form, std::string_view source) const)
    {
        std::erase_if(waiting, [&](const NamedEntry* entry) {
            return (rules_.*isTheirs)(forms_[entry->name], source_.Name(entry->node))
                && Claim(entry->name);
        });
    }

    bool Claim(NameRef form) { return claimed_.insert(rules_.Key(forms_[form])).second; }

    NameRef FirstFree(NodeId node)
    {
        const std::string_view name = source_.Name(node);
        const NameOf kind = KindOf(source_[node]);
        unsigned& tried
            = tried_[rules_.Form(name, kind)]; // a thousand clashes need no million attempts
        while (true) {
            const NameRef form = writer_.Add(rules_.Numbered(name, kind, ++tried));
            if (Claim(form)) {
                return form;
            }
        }
    }

    const SourceTree& source_;
    const NameRules& rules_;
    NameArena& forms_;
    NameArena::Writer& writer_;
    std::unordered_set<std::string_view> claimed_;
    std::unordered_map<std::string, unsigned> tried_;
};

/// Whether every name is its own form and in its right place.
bool AreOwnForms(
    const SourceTree& source, const NameRules& rules, std::span<const NamedEntry> entries)
{
    std::string_view before;
    return std::ranges::all_of(entries, [&](const NamedEntry& entry) {
        const std::string_view name = source.Name(entry.node);
        return std::exchange(before, name) < name && rules.IsOwnForm(name);
    });
}

/// The marker for a form that follows from the source's name; none if the form has to be kept.
std::optional<NameRef> ToldBySource(
    const NameRules& rules, std::string_view form, std::string_view name)
{
    if (!rules.IsKept(form, name)) {
        return std::nullopt;
    }
    if (RecordedName(name, rules.Coding()) == form) {
        return kSourceName;
    }
    const bool isConverted = RecordedName(name, rules.Coding(), NameCharacters::All) == form;
    return isConverted ? std::optional(kWideSourceName) : std::nullopt;
}

} // namespace

bool NameEntries(const SourceTree& source,
    const NameRules& rules,
    std::span<NamedEntry> entries,
    NameArena& forms,
    NameArena::Writer& writer)
{
    if (AreOwnForms(source, rules, entries)) {
        return false; // entries come unnamed, and sorted when they are from one folder
    }
    forms.Clear();
    NameArena::Writer formWriter(forms);
    for (NamedEntry& entry : entries) {
        entry.name
            = formWriter.Add(rules.Form(source.Name(entry.node), KindOf(source[entry.node])));
    }
    const auto keyOf = [&](const NamedEntry& entry) { return rules.Key(forms[entry.name]); };
    SortBy(entries, keyOf);
    const auto clash = std::ranges::adjacent_find(entries, {}, keyOf);
    const bool hasClashes = clash != entries.end();
    if (hasClashes) {
        Claims(source, rules, forms, formWriter).Settle(entries);
    }
    SortBy(entries, [&](const NamedEntry& entry) { return forms[entry.name]; });
    for (NamedEntry& entry : entries) {
        const std::string_view form = forms[entry.name];
        const std::optional<NameRef> told = ToldBySource(rules, form, source.Name(entry.node));
        entry.name = told ? *told : writer.Add(form);
    }
    return hasClashes;
}

} // namespace velmora::image
