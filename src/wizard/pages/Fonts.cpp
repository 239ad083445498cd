// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/Fonts.h"

#include <QWidget>

namespace velmora::wizard {

namespace {

void Enlarge(QWidget& label, qreal factor, QFont::Weight weight)
{
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setWeight(weight);
    label.setFont(font);
}

} // namespace

void MakeTitle(QWidget& label) { Enlarge(label, 1.3, QFont::DemiBold); }

void MakeHeadline(QWidget& label) { Enlarge(label, 1.6, QFont::Normal); }

void MakeOutcome(QWidget& label) { Enlarge(label, 1.7, QFont::Bold); }

void MakeFigure(QWidget& label) { Enlarge(label, 2.4, QFont::DemiBold); }

} // namespace velmora::wizard
