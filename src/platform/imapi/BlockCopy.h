// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IStream.h"

namespace velmora::imapi {

/// Copies bytes from one stream's position to another's, block by block, until `count` is reached
/// or the source ends.
/// @return bytes copied
/// Errors: those of Read and Write.
quint64 BlockCopy(IStream& source, IStream& destination, quint64 count);

} // namespace velmora::imapi
