// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiscChoices.h"

#include <QStringList>

namespace velmora::writing {

/// The speeds that are offered for a format before its disc is known, as Combo2_2 shows them:
/// "Maximum", then multiples from the fastest down. Only "Maximum" for the disc in the drive.
QStringList UsualSpeeds(shell::DiscFormat format);

} // namespace velmora::writing
