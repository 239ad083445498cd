// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/JobEvents.h"

namespace velmora::terminal {

bool ChangesExitCode(RemarkKind kind)
{
    switch (kind) {
    case RemarkKind::ChangedSource:
    case RemarkKind::LeftOut:
    case RemarkKind::RefusedDisc:
    case RemarkKind::NotCompared:
    case RemarkKind::HurtFile:
    case RemarkKind::OtherBytes:
    case RemarkKind::NothingToCompare:
    case RemarkKind::Undescribed:
    case RemarkKind::Message:
    case RemarkKind::Stopped:
        return true;
    case RemarkKind::ChangedName:
    case RemarkKind::NameHazard:
    case RemarkKind::LinkLeadingOut:
    case RemarkKind::PartlyHeld:
    case RemarkKind::HiddenEntry:
    case RemarkKind::OtherSums:
    case RemarkKind::RewritableTooSmall:
    case RemarkKind::AfterWrite:
        break;
    }
    return false;
}

} // namespace velmora::terminal
