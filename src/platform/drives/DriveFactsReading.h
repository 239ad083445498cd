// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"

#include <QString>

namespace velmora::drives {

/// Asks a drive what it is, without disturbing other programs and without spinning up its disc.
/// @return  all but id and volume name
/// Errors: E_ACCESSDENIED, 0x80070037, C0AA020D.
drive::DriveFacts ReadDriveFacts(const QString& device);

} // namespace velmora::drives
