// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/names/NamedTree.h"

#include <span>

namespace velmora::image {

/// Gives the entries of one directory their forms and puts them into recording order. Names that
/// are legal as they are come first, then those that are legal except for their case; of the
/// others, in the order of the source's names, the first to want a form gets it. The rest take the
/// first numbered form that is free.
/// @param forms  what the rules make of each name; consumed
/// @param writer  keeps the forms that are not the source's names
/// @return whether some names became the same and had to be changed
bool NameEntries(const SourceTree& source,
    const NameRules& rules,
    std::span<NamedEntry> entries,
    NameArena& forms,
    NameArena::Writer& writer);

} // namespace velmora::image
