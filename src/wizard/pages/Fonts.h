// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace velmora::wizard {

/// The font of a page's title.
void MakeTitle(QWidget& label);

/// The font of what a page says first: larger still.
void MakeHeadline(QWidget& label);

/// The font of how it ended, which nothing else on the page outdoes.
void MakeOutcome(QWidget& label);

/// The font of a figure that is read across a room.
void MakeFigure(QWidget& label);

} // namespace velmora::wizard
