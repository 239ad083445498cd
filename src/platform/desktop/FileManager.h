// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

namespace velmora::desktop {

/// Starts the desktop's file manager on a folder, without waiting for it. Error 53 when the desktop
/// has none.
void OpenInFileManager(const text::ProgramPath& folder);

} // namespace velmora::desktop
