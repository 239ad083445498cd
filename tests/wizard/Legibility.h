// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/controls/ElidedLabel.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QStringList>
#include <QTabBar>
#include <QTreeView>

#include <vector>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// Looks for what a user can't read in a window: controls that are smaller than their texts, lie
/// outside their container, or overlap. What scrolls vertically may be long.
class Legibility {
public:
    explicit Legibility(const QWidget& window)
        : window_(window)
    {
        Collect(window);
    }

    /// One line for each fault.
    QStringList Faults() const
    {
        QStringList faults;
        for (const QWidget* control : controls_) {
            if (IsCut(*control)) {
                faults += u"%1 is cut: %2x%3"_s.arg(control->objectName())
                              .arg(control->width())
                              .arg(control->height());
            }
            if (!IsInside(*control)) {
                faults += control->objectName() + u" reaches out of what holds it"_s;
            }
        }
        for (std::size_t i = 0; i < controls_.size(); ++i) {
            for (std::size_t j = i + 1; j < controls_.size(); ++j) {
                if (Shown(*controls_[i]).intersects(Shown(*controls_[j]))) {
                    faults += controls_[i]->objectName() + u" and "_s + controls_[j]->objectName()
                        + u" lie over one another"_s;
                }
            }
        }
        return faults;
    }

private:
    template <class... Kinds> static bool IsOneOf(const QWidget& widget)
    {
        return ((qobject_cast<const Kinds*>(&widget) != nullptr) || ...);
    }
    static bool IsViewport(const QWidget& widget)
    {
        const auto* area = qobject_cast<const QAbstractScrollArea*>(widget.parentWidget());
        return area != nullptr && area->viewport() == &widget;
    }
    /// The controls that a user sees, without their inner parts.
    void Collect(const QWidget& part)
    {
        for (const QObject* child : part.children()) {
            const auto* widget = qobject_cast<const QWidget*>(child);
            if (widget == nullptr || !widget->isVisible() || widget->isWindow()) {
                continue;
            }
            const bool isWhole = IsOneOf<QLabel,
                QAbstractButton,
                QComboBox,
                QLineEdit,
                QProgressBar,
                QTabBar,
                QTreeView,
                QPlainTextEdit>(*widget);
            const bool isDrawn = widget->findChild<QWidget*>() == nullptr;
            const bool isNamed
                = !widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_"_s);
            if (isNamed && (isWhole || isDrawn)) {
                controls_.push_back(widget);
            } else if (!isWhole) {
                Collect(*widget);
            }
        }
    }
    /// A control that elides its text on purpose shows all of it in a tool tip, or scrolls.
    static bool IsCut(const QWidget& control)
    {
        if (dynamic_cast<const wizard::ElidedLabel*>(&control) != nullptr
            || IsOneOf<QTreeView, QPlainTextEdit>(control)) {
            return false;
        }
        const QSize least = control.minimumSizeHint().boundedTo(control.maximumSize());
        const int height = control.hasHeightForWidth() ? control.heightForWidth(control.width())
                                                       : least.height();
        return control.width() < least.width() || control.height() < height;
    }
    static bool IsInside(const QWidget& control)
    {
        const QWidget* holder = control.parentWidget();
        QRect place = control.geometry();
        while (holder != nullptr && !control.isWindow()) {
            const bool isWide = place.left() < 0 || place.right() >= holder->width();
            const bool isLong = place.top() < 0 || place.bottom() >= holder->height();
            if (isWide || (isLong && !IsViewport(*holder))) {
                return false;
            }
            if (IsViewport(*holder) || holder->isWindow()) {
                return true;
            }
            place.translate(holder->pos());
            holder = holder->parentWidget();
        }
        return true;
    }
    /// Where it is visible in the window.
    QRect Shown(const QWidget& control) const
    {
        QRect place(control.mapTo(&window_, QPoint()), control.size());
        for (const QWidget* holder = control.parentWidget(); holder != &window_;
             holder = holder->parentWidget()) {
            place &= QRect(holder->mapTo(&window_, QPoint()), holder->size());
        }
        return place;
    }

    const QWidget& window_;
    std::vector<const QWidget*> controls_;
};

} // namespace velmora::test
