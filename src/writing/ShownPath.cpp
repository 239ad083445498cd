// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ShownPath.h"

#include "text/PathText.h"

namespace velmora::writing {

QString ShownPath(const QString& programPath)
{
    const bool isOfThisMachine = programPath.startsWith(u'\\');
    return isOfThisMachine ? text::MachinePathForTheEye(programPath) : text::ForTheEye(programPath);
}

} // namespace velmora::writing
