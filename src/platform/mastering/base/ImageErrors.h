// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Error.h"
#include "imapi/EntriesLeftOut.h"

#include <QtGlobal>

#include <vector>

namespace velmora::mastering {

/// The classic number for an item of another kind than expected.
inline constexpr qint32 kTypeMismatch = 13;

/// The code under which the mastering interfaces publish a failure of the image writer.
qint32 PublishedCodeOf(image::ErrorKind kind);

/// Raises a failure of the image writer under its published number, with its French description.
[[noreturn]] void Raise(const image::Error& failure);

/// Raises the failure of an addition that leaves out one entry.
[[noreturn]] void RaiseLeftOut(const image::Error& failure);

/// What failed and why, in French, without the path.
QString ReasonOf(const image::Error& error);

/// The entries that an image lacks, with the reasons in French.
std::vector<imapi::LeftOutEntry> EntriesOf(const std::vector<image::Error>& leftOut);

} // namespace velmora::mastering
