// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::tray {

/// What "--help" shows.
QString HelpText();

} // namespace velmora::tray
