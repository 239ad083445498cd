// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ChangedSources.h"

#include "text/PathText.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

void TellChangedSources(const RunReport& report, BurnScreen& screen)
{
    const QString warning = report.target == BurnTarget::IsoFile
        ? u"Attention : modifié pendant la lecture, l'image porte ce qui en a été lu : "_s
        : u"Attention : modifié pendant la gravure, le disque porte ce qui en a été lu : "_s;
    for (const text::ProgramPath& path : report.changedSources) {
        screen.AddLogLine(warning + text::MachinePathForTheEye(path));
    }
}

} // namespace velmora::writing
