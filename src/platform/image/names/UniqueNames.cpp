// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "UniqueNames.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace velmora::image {

namespace {

NameOf KindOf(const Node& node) { return node.isDirectory ? NameOf::Directory : NameOf::File; }

template <class KeyOf> void SortBy(std::span<NamedEntry> entries, const KeyOf& keyOf)
{
    const auto before
        = [&](const NamedEntry& a, const NamedEntry& b) { return keyOf(a) < keyOf(b); };
    if (!std::is_sorted(entries.begin(), entries.end(), before)) {
        std::sort(entries.begin(), entries.end(), before);
    }
}

/// Hands out forms in one directory so that no two share a key.
class Claims {
public:
    Claims(const SourceTree& source,
        const NameRules& rules,
        NameArena& names,
        NameArena::Writer& writer)
        : source_(source)
        , rules_(rules)
        , names_(names)
        , writer_(writer)
    {
    }

    void Settle(std::span<NamedEntry> entries)
    {
        SortBy(entries, [&](const NamedEntry& entry) { return source_.Name(entry.node); });
        claimed_.reserve(entries.size());
        std::vector<NamedEntry*> others;
        for (NamedEntry& entry : entries) {
            const bool kept = rules_.IsKept(names_[entry.name], source_.Name(entry.node));
            if (!kept || !Claim(entry.name)) {
                others.push_back(&entry);
            }
        }
        for (NamedEntry* entry : others) {
            if (!Claim(entry->name)) {
                entry->name = FirstFree(entry->node);
            }
        }
    }

private:
    bool Claim(NameRef form) { return claimed_.insert(rules_.Key(names_[form])).second; }

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
    NameArena& names_;
    NameArena::Writer& writer_;
    std::unordered_set<std::string_view> claimed_;
    std::unordered_map<std::string, unsigned> tried_;
};

} // namespace

bool NameEntries(const SourceTree& source,
    const NameRules& rules,
    std::span<NamedEntry> entries,
    NameArena& names,
    NameArena::Writer& writer)
{
    for (NamedEntry& entry : entries) {
        entry.name = writer.Add(rules.Form(source.Name(entry.node), KindOf(source[entry.node])));
    }
    const auto keyOf = [&](const NamedEntry& entry) { return rules.Key(names[entry.name]); };
    SortBy(entries, keyOf);
    const auto clash = std::adjacent_find(entries.begin(),
        entries.end(),
        [&](const NamedEntry& a, const NamedEntry& b) { return keyOf(a) == keyOf(b); });
    const bool hasClashes = clash != entries.end();
    if (hasClashes) {
        Claims(source, rules, names, writer).Settle(entries);
    }
    SortBy(entries, [&](const NamedEntry& entry) { return names[entry.name]; });
    return hasClashes;
}

} // namespace velmora::image
