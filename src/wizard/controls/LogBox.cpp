// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/LogBox.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMenu>
#include <QScrollBar>

#include <memory>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

LogBox::LogBox(QWidget* parent)
    : QPlainTextEdit(parent)
{
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(font().pointSizeF());
    setFont(fixed);
}

void LogBox::Append(const QString& added)
{
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(added);
    setTextCursor(end);
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

QMenu* LogBox::CreateMenu()
{
    QMenu* menu = createStandardContextMenu();
    const bool hasText = !document()->isEmpty();
    menu->addSeparator();
    menu->addAction(u"Copier tout le &journal"_s, this, [this] { CopyAll(); })->setEnabled(hasText);
    menu->addAction(u"&Enregistrer le journal…"_s, this, [this] { save_(); })
        ->setEnabled(hasText && save_);
    return menu;
}

void LogBox::contextMenuEvent(QContextMenuEvent* event)
{
    const std::unique_ptr<QMenu> menu(CreateMenu());
    menu->exec(event->globalPos());
}

void LogBox::resizeEvent(QResizeEvent* event)
{
    QScrollBar& bar = *verticalScrollBar();
    const bool wasAtEnd = bar.value() == bar.maximum();
    QPlainTextEdit::resizeEvent(event);
    if (wasAtEnd) {
        bar.setValue(bar.maximum());
    }
}

void LogBox::CopyAll() { QGuiApplication::clipboard()->setText(toPlainText()); }

} // namespace velmora::wizard
