// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CompilationList.h"
#include "text/Paths.h"

#include <functional>

namespace velmora::compilation {

/// Whether a file is one of those that the compilation takes to the disc, under whatever name: by a
/// hard link, a symbolic link that leads to it or another way to its folder. A symbolic link that
/// is taken to the disc as such counts as well.
/// @param whileSearching  called about 25 times a second; the folders of the list are gone through
bool IsSource(const CompilationList& list,
    const text::ProgramPath& file,
    const std::function<void()>& whileSearching);

} // namespace velmora::compilation
