// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "imapi/IDiscFormat2Data.h"
#include "imapi/IStream.h"

namespace velmora::mastering {

/// May a write destroy the disc's contents?
enum class Overwrite : bool { No, Yes };

/// Errors: what IDiscFormat2Data::Write says about the disc.
void RequireWritable(const drive::DiscInfo& disc, qint64 sectors, Overwrite overwrite);

/// Does a write of this many sectors close the disc: because it is wanted, because the disc can't
/// stay open, or because next to nothing is left?
bool MustClose(const drive::DiscInfo& disc, qint64 sectors, bool isWanted);

/// The Update event for a report of the drive.
/// @param elapsed  seconds since the write began
imapi::IDiscFormat2DataEventArgs EventArgsOf(const drive::WriteProgress& progress, double elapsed);

/// Fills the span from the stream's position on.
/// Errors: those of Read; STG_E_READFAULT when the stream ends too early.
void ReadAll(imapi::IStream& stream, std::span<std::byte> out);

} // namespace velmora::mastering
