// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/AwakeAtWork.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

#include <utility>

namespace velmora::wizard {

AwakeAtWork::AwakeAtWork(Hold hold, QString reason)
    : hold_(std::move(hold))
    , reason_(std::move(reason))
{
    if (hold_) {
        held_ = hold_(reason_);
        QApplication::instance()->installEventFilter(this);
    }
}

bool AwakeAtWork::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && dialog_ == nullptr
        && qobject_cast<QDialog*>(watched) != nullptr) {
        dialog_ = watched;
        held_.reset();
    } else if (event->type() == QEvent::Hide && watched == dialog_) {
        dialog_.clear();
        held_ = hold_(reason_);
    }
    return false;
}

} // namespace velmora::wizard
