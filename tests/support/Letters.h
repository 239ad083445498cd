// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QStringList>

#include <gtest/gtest.h>

namespace velmora::test {

/// The Alt keys of what is visible in a window: push buttons and check boxes, and fields by their
/// labels. Empty for a button without one.
inline QStringList LettersOf(const QWidget& window)
{
    QStringList letters;
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        const bool takesPart = qobject_cast<const QPushButton*>(button) != nullptr
            || qobject_cast<const QCheckBox*>(button) != nullptr;
        if (takesPart && button->isVisibleTo(&window)) {
            letters += button->shortcut().toString();
        }
    }
    for (const auto* label : window.findChildren<QLabel*>()) {
        const QString key = QKeySequence::mnemonic(label->text()).toString();
        if (label->buddy() != nullptr && label->isVisibleTo(&window) && !key.isEmpty()) {
            letters += key;
        }
    }
    return letters;
}

/// Every button of a window has a letter, and no letter is taken twice.
inline void ExpectLettersOfTheirOwn(const QWidget& window)
{
    QStringList letters = LettersOf(window);
    const std::string shown
        = (window.windowTitle() + QStringLiteral(": ") + letters.join(QChar(u' '))).toStdString();
    EXPECT_FALSE(letters.isEmpty()) << shown;
    EXPECT_FALSE(letters.contains(QString())) << shown;
    EXPECT_EQ(letters.removeDuplicates(), 0) << shown;
}

} // namespace velmora::test
