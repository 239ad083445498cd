// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QString>

class QAbstractButton;
class QTabBar;
class QWidget;

namespace velmora::wizard {

/// The letters by which the Alt key presses buttons: each is unique among what is visible together.
/// Parts that are never visible together each use their own copy.
class Mnemonics {
public:
    /// Gives a letter to each tab and each button in a part of the window, the visible ones first.
    /// Radio buttons use the arrow keys. A button that has a letter keeps it.
    void GiveTo(QWidget& part);

private:
    void GiveToTabs(QTabBar& tabs);
    void GiveToButton(QAbstractButton& button);
    qsizetype Take(const QString& caption);

    QSet<QChar> taken_;
};

} // namespace velmora::wizard
