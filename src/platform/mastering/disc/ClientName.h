// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::mastering {

/// Is the text a valid client name: 1 to 63 of A-Z a-z 0-9 blank . , : ; - _?
bool IsClientName(const QString& name);

} // namespace velmora::mastering
