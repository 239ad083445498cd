// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IStream.h"

namespace velmora::mastering {

/// Copies bytes from one stream's position to another's, block by block, until `count` is reached
/// or the source ends.
/// @return bytes copied
/// Errors: those of Read and Write.
quint64 BlockCopy(imapi::IStream& source, imapi::IStream& destination, quint64 count);

} // namespace velmora::mastering
