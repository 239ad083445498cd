// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/StagedRun.h"

namespace velmora::writing {

void StagedRun::Conduct()
{
    RunEnd end = RunEnd::Abandoned;
    runtime::PendingError failure;
    try {
        end = Stages();
    } catch (const runtime::RuntimeError& raised) {
        failure.Keep(raised);
    }
    switch (end) {
    case RunEnd::NotBegun:
        break;
    case RunEnd::Done:
        NormalEnd();
        break;
    case RunEnd::Abandoned:
        ErrorExit(failure);
        break;
    case RunEnd::Interrupted:
        InterruptedExit();
        break;
    }
}

} // namespace velmora::writing
