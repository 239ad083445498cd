// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::wizard {

/// What the window adds to the desktop's style: the colours of the primary buttons, which are the
/// default ones, and of the bars.
QString WindowStyle();

} // namespace velmora::wizard
