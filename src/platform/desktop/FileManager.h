// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::desktop {

/// Starts the desktop's file manager on a folder, without waiting for it. Error 53 when the desktop
/// has none.
/// @param folder  program path
void OpenInFileManager(const QString& folder);

} // namespace velmora::desktop
