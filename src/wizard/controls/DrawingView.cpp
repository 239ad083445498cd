// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/DrawingView.h"

#include "wizard/controls/Drawing.h"

#include <QPainter>

namespace velmora::wizard {

DrawingView::DrawingView(QWidget* parent)
    : QWidget(parent)
{
}

DrawingView::~DrawingView() = default;

void DrawingView::SetDrawing(const QString& name)
{
    drawing_ = std::make_unique<Drawing>(name);
    update();
}

void DrawingView::paintEvent(QPaintEvent*)
{
    if (drawing_) {
        QPainter painter(this);
        drawing_->Paint(painter, rect());
    }
}

} // namespace velmora::wizard
