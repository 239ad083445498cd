// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::writing {
struct RunReport;
}

namespace velmora::wizard {

/// What a person can do after a burn that didn't come to a good end: one French sentence or
/// several; empty where there is nothing to do, or nobody knows what.
QString NextStep(const writing::RunReport& report);

} // namespace velmora::wizard
