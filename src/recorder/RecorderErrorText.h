// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::recorder {

/// The message for an error number of the recorder's platform.
///
/// A number below 0 is made positive first, in the argument too. The messages belong to the
/// unsigned values of the codes, so a failure, which arrives as a negative 32-bit number, matches
/// none of them and is reported by its number.
QString RecorderErrorText(double& number);

} // namespace velmora::recorder
