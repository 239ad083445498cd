// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::writing {
struct RunReport;
}

namespace velmora::wizard {

// How a run ended, for somebody who looks at another program. Empty where nothing was begun.

QString NoticeOfBurn(const writing::RunReport& report);
QString NoticeOfErase(const writing::RunReport& report);

/// Why a disc was not erased, as drive and disc tell it; empty where it was, or nobody wanted it.
QString CauseOfErase(const writing::RunReport& report);

/// Did it end in a way that a person must see, before the window that tells it goes?
bool MustBeSeen(const writing::RunReport& report);

} // namespace velmora::wizard
