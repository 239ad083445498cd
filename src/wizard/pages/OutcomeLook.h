// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/RunNotice.h"

class QLabel;

namespace velmora::wizard {

class DrawingView;

/// Shows how a run ended, at a glance: its picture, and its title in a colour that is legible on
/// the background. Neither if nothing was begun.
void ShowOutcome(const RunNotice& notice, DrawingView& picture, QLabel& title);

} // namespace velmora::wizard
