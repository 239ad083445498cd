// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::writing {
struct RunReport;
}

namespace velmora::wizard {

/// What the user can do after an unsuccessful burn: one or more French sentences; empty if there is
/// no advice.
QString NextStep(const writing::RunReport& report);

} // namespace velmora::wizard
