// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/QuietScreen.h"

namespace velmora::terminal {

void QuietScreen::Tell(const JobEvent& event)
{
    if (const auto* failure = std::get_if<Failure>(&event)) {
        screen_.Notice("Erreur : " + failure->text);
        return;
    }
    const auto* remark = std::get_if<JobRemark>(&event);
    if (remark != nullptr
        && (ChangesExitCode(remark->kind) || remark->kind == RemarkKind::AfterWrite)) {
        screen_.Notice(remark->text);
    }
}

} // namespace velmora::terminal
