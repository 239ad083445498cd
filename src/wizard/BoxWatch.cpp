// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/BoxWatch.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

#include <utility>

namespace velmora::wizard {

BoxWatch::BoxWatch(Tell tell)
    : tell_(std::move(tell))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool BoxWatch::eventFilter(QObject* watched, QEvent* event)
{
    // A box isn't active yet when it is shown: the active window is the one that the user is
    // looking at.
    if (event->type() == QEvent::Show && QApplication::activeWindow() == nullptr) {
        const auto* box = qobject_cast<QDialog*>(watched);
        if (box != nullptr && box->isModal()) {
            const auto* message = qobject_cast<const QMessageBox*>(box);
            tell_(box->windowTitle(), message != nullptr ? message->text() : QString());
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace velmora::wizard
