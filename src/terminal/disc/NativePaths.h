// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

namespace velmora::terminal {

/// A path as it was typed, from the root on.
text::ProgramPath ProgramPathOf(const text::NativePath& path);

/// The directory for temporary files. Nothing is put there, but a run checks
/// that it could be.
text::ProgramPath TemporaryDirectory();

} // namespace velmora::terminal
