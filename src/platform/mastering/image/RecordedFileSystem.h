// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IMultisession.h"

#include <optional>

namespace velmora::mastering {

/// Looks for a file system at the start of a disc's last recording, or of the whole disc if it
/// names none: ISO 9660 first, then UDF.
/// @return the sector after the file system, from its own start; nothing when none is known
/// Errors: those of IMultisession::ReadSectors.
std::optional<qint64> FindRecordedFileSystem(imapi::IMultisession& disc);

} // namespace velmora::mastering
