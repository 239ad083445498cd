// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/Mnemonics.h"

#include <QAbstractButton>
#include <QKeySequence>
#include <QRadioButton>
#include <QTabBar>

#include <algorithm>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

/// Every keyboard has these without a modifier key.
bool IsPlainLetter(QChar character)
{
    const QChar lower = character.toLower();
    return lower >= u'a' && lower <= u'z';
}

QString Marked(const QString& caption, qsizetype letter)
{
    return letter < 0 ? caption : QString(caption).insert(letter, u'&');
}

/// The buttons of a part; a tab bar has some of its own, which it shows when it lacks room.
QList<QAbstractButton*> ButtonsOf(const QWidget& part)
{
    QList<QAbstractButton*> buttons = part.findChildren<QAbstractButton*>();
    buttons.removeIf([](const QAbstractButton* button) {
        return qobject_cast<const QRadioButton*>(button) != nullptr
            || qobject_cast<const QTabBar*>(button->parentWidget()) != nullptr;
    });
    std::stable_partition(buttons.begin(), buttons.end(), [](const QAbstractButton* button) {
        return !button->isHidden();
    });
    return buttons;
}

} // namespace

void Mnemonics::GiveTo(QWidget& part)
{
    for (QTabBar* tabs : part.findChildren<QTabBar*>()) {
        GiveToTabs(*tabs);
    }
    for (QAbstractButton* button : ButtonsOf(part)) {
        GiveToButton(*button);
    }
}

void Mnemonics::GiveToTabs(QTabBar& tabs)
{
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setTabText(tab, Marked(tabs.tabText(tab), Take(tabs.tabText(tab))));
    }
}

void Mnemonics::GiveToButton(QAbstractButton& button)
{
    const QString text = button.text();
    const qsizetype mark = text.indexOf(u'&');
    if (mark >= 0 && mark + 1 < text.size()) {
        taken_ += text[mark + 1].toLower();
        return;
    }
    const QString caption = text.isEmpty() ? button.accessibleName() : text;
    const qsizetype letter = Take(caption);
    if (letter >= 0 && text.isEmpty()) {
        button.setShortcut(QKeySequence(u"Alt+"_s + caption[letter].toUpper()));
    } else {
        button.setText(Marked(text, letter));
    }
}

/// Takes a free letter, the first of a word if possible.
/// @return its place; -1 when the caption has none
qsizetype Mnemonics::Take(const QString& caption)
{
    for (const bool onlyFirst : {true, false}) {
        for (qsizetype i = 0; i < caption.size(); ++i) {
            const bool isFirst = i == 0 || caption[i - 1] == u' ';
            const QChar letter = caption[i].toLower();
            if (IsPlainLetter(letter) && (isFirst || !onlyFirst) && !taken_.contains(letter)) {
                taken_ += letter;
                return i;
            }
        }
    }
    return -1;
}

} // namespace velmora::wizard
