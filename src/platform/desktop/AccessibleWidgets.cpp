// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/AccessibleWidgets.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace {

/// A button that draws itself.
class DrawnButton final : public QAccessibleWidget {
public:
    explicit DrawnButton(QAbstractButton& button)
        : QAccessibleWidget(&button, QAccessible::Button)
        , button_(button)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        return own.isEmpty() && kind == QAccessible::Name ? button_.text() : own;
    }
    QStringList actionNames() const override
    {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override
    {
        if (action == pressAction()) {
            button_.click();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    QAbstractButton& button_;
};

/// Called with the names of an object's classes, from its own down to the base class.
QAccessibleInterface* Interface(const QString& className, QObject* object)
{
    if (className == u"QAbstractButton") {
        return new DrawnButton(*static_cast<QAbstractButton*>(object));
    }
    auto* widget = qobject_cast<QWidget*>(object);
    if (className == u"QScrollArea") { // can get the focus, if its keys scroll
        return new QAccessibleWidget(widget, QAccessible::Pane);
    }
    const bool isPlainWindow = className == u"QWidget" && widget != nullptr && widget->isWindow();
    return isPlainWindow ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

} // namespace

void ServeScreenReaders() { QAccessible::installFactory(Interface); }

void Announce(QWidget& speaker, const QString& words)
{
    speaker.setAccessibleDescription(words); // the only text that an alert has
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&speaker, words);
#else
    QAccessibleEvent event(&speaker, QAccessible::Alert);
#endif
    QAccessible::updateAccessibility(&event);
}

} // namespace velmora::desktop
