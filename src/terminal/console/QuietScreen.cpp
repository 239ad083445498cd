// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/QuietScreen.h"

namespace velmora::terminal {

namespace {

/// Does it end a job otherwise, or is something missing that was asked for?
bool IsWrong(RemarkKind kind)
{
    return ChangesExitCode(kind) || kind == RemarkKind::AfterWrite || kind == RemarkKind::OtherSums;
}

} // namespace

void QuietScreen::Tell(const JobEvent& event)
{
    if (const auto* failure = std::get_if<Failure>(&event)) {
        screen_.Notice("Erreur : " + failure->text);
        return;
    }
    const auto* remark = std::get_if<JobRemark>(&event);
    if (remark != nullptr && IsWrong(remark->kind)) {
        screen_.Notice(remark->text);
    }
}

} // namespace velmora::terminal
