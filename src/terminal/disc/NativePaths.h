// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

namespace velmora::terminal {

/// A typed path, made absolute.
text::ProgramPath ProgramPathOf(const text::NativePath& path);

/// The directory for temporary files. Nothing is written there, but a run checks that it could be.
text::ProgramPath TemporaryDirectory();

} // namespace velmora::terminal
