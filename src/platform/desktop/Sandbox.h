// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::desktop {

/// Whether the program runs in a sandbox, where only the desktop's portal can reach the user's
/// files.
bool IsInSandbox();

} // namespace velmora::desktop
