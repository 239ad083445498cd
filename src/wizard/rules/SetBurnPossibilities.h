// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::wizard {

class FormatScreen;

/// Paints the format buttons, and enables the discs with two layers, by what a recorder can write.
/// @param mediaMask  bits of recorder::media_mask
void SetBurnPossibilities(qint32 mediaMask, FormatScreen& screen);

} // namespace velmora::wizard
