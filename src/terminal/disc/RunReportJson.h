// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writing/RunReport.h"

#include <QJsonObject>

namespace velmora::terminal {

/// The full result of a run, for another program.
QJsonObject RunReportObject(const writing::RunReport& report);

} // namespace velmora::terminal
