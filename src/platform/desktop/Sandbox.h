// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::desktop {

/// Whether the program runs in a sandbox, in which only the desktop's portal knows the files of the
/// person.
bool IsInSandbox();

} // namespace velmora::desktop
