// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/ResumeNext.h"

namespace velmora::recorder {

/// Closes the tray after the user has inserted another disc, and closes it twice when a failure is
/// pending: its own, or that of the ejection before.
/// @param close  closes the tray; its failures are ignored
template <class Close> void CloseTrayAfterEjection(runtime::PendingError& pending, Close&& close)
{
    if (runtime::ResumeNext(pending, close) != 0) {
        runtime::ResumeNext(pending, close);
    }
}

} // namespace velmora::recorder
