// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

namespace velmora::tray {

/// What "--help" shows after a command; without one, what the program does.
/// @param command  "insert"; empty for none
QString HelpText(QStringView command = {});

} // namespace velmora::tray
