// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::writing {

/// A path for display: one of this machine, which begins with a separator, as Linux writes it; one
/// on the disc with its backslashes.
QString ShownPath(const QString& programPath);

} // namespace velmora::writing
