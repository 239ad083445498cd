// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace velmora::wizard {

/// The font of a page's title.
void MakeTitle(QWidget& label);

/// The font of a page's main statement: larger still.
void MakeHeadline(QWidget& label);

/// The font of the outcome, the most prominent text of the page.
void MakeOutcome(QWidget& label);

/// The font of a figure that is readable across a room.
void MakeFigure(QWidget& label);

} // namespace velmora::wizard
