// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShownPath.h"

#include "PathText.h"

namespace velmora::writing {

QString ShownPath(const QString& programPath)
{
    const bool isOfThisMachine = programPath.startsWith(u'\\');
    return isOfThisMachine ? text::MachinePathForTheEye(programPath) : text::ForTheEye(programPath);
}

} // namespace velmora::writing
