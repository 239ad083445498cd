// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CompilationList.h"
#include "text/Paths.h"

#include <functional>

namespace velmora::compilation {

/// Whether a file is one of those that the compilation burns, under any name: by a hard link, a
/// symbolic link that leads to it or another path to its folder. A symbolic link that is burned as
/// such counts as well.
/// @param whileSearching  called about 25 times a second while the folders of the list are searched
bool IsSource(const CompilationList& list,
    const text::ProgramPath& file,
    const std::function<void()>& whileSearching);

} // namespace velmora::compilation
