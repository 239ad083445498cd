// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/MouseCapture.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace velmora::wizard {

namespace {

bool IsMouseInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

bool BelongsTo(const QWidget& widget, const QWidget* owner)
{
    return owner != nullptr && (&widget == owner || owner->isAncestorOf(&widget));
}

} // namespace

MouseCapture::~MouseCapture() { ReleaseCapture(); }

void MouseCapture::SetCapture(QWidget& holder)
{
    ReleaseCapture();
    holder_ = &holder;
    QApplication::instance()->installEventFilter(this);
}

void MouseCapture::ReleaseCapture()
{
    holder_.clear();
    if (QApplication::instance() != nullptr) {
        QApplication::instance()->removeEventFilter(this);
    }
}

bool MouseCapture::eventFilter(QObject* watched, QEvent* event)
{
    if (holder_.isNull() || (watched == holder_ && event->type() == QEvent::Hide)) {
        ReleaseCapture();
        return false;
    }
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || !IsMouseInput(event->type())) {
        return false;
    }
    return !BelongsTo(*widget, holder_) && !BelongsTo(*widget, QApplication::activeModalWidget());
}

} // namespace velmora::wizard
