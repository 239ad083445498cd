// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MessageBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include <algorithm>
#include <vector>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace {

QMessageBox::Icon IconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Stop:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

struct Choice {
    QStringView text;
    QMessageBox::ButtonRole role;
    BoxAnswer answer;
};

constexpr Choice kOk {u"OK", QMessageBox::AcceptRole, BoxAnswer::Ok};
constexpr Choice kCancel {u"&Annuler", QMessageBox::RejectRole, BoxAnswer::Cancel};
constexpr Choice kYes {u"&Oui", QMessageBox::YesRole, BoxAnswer::Yes};
// A lone button of the role No would be what the escape key presses.
constexpr Choice kNo {u"&Non", QMessageBox::DestructiveRole, BoxAnswer::No};

/// The first is the default button, the last what a box stands for that was never answered.
std::vector<Choice> ChoicesOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::Ok:
        return {kOk};
    case BoxButtons::OkCancel:
        return {kOk, kCancel};
    case BoxButtons::YesNo:
        break;
    }
    return {kYes, kNo};
}

} // namespace

BoxAnswer ShowMessageBox(const QString& text, const BoxLook& look, const QString& title)
{
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setIcon(IconOf(look.icon));
    box.setWindowModality(Qt::ApplicationModal);
    box.setWindowFlag(Qt::WindowStaysOnTopHint, look.staysOnTop);
    const std::vector<Choice> choices = ChoicesOf(look.buttons);
    for (const Choice& choice : choices) {
        box.addButton(choice.text.toString(), choice.role);
    }
    box.exec();
    const QAbstractButton* clicked = box.clickedButton();
    const auto chosen = std::ranges::find_if(choices, [clicked](const Choice& choice) {
        return clicked != nullptr && clicked->text() == choice.text;
    });
    return chosen == choices.end() ? choices.back().answer : chosen->answer;
}

} // namespace velmora::desktop
