// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MessageBox.h"

#include "desktop/DialogParent.h"
#include "desktop/WholeQuotes.h"

#include <QMessageBox>
#include <QPushButton>

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

constexpr Choice kOk {u"&OK", QMessageBox::AcceptRole, BoxAnswer::Ok};
constexpr Choice kCancel {u"&Annuler", QMessageBox::RejectRole, BoxAnswer::Cancel};
constexpr Choice kYes {u"&Oui", QMessageBox::YesRole, BoxAnswer::Yes};
constexpr Choice kNo {u"&Non", QMessageBox::NoRole, BoxAnswer::No};

/// The first is the default button, the last the answer when the box is closed.
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
    QMessageBox box(DialogParent());
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(WithWholeQuotes(text));
    box.setInformativeText(WithWholeQuotes(look.advice));
    box.setIcon(IconOf(look.icon));
    box.setWindowModality(Qt::ApplicationModal);
    box.setWindowFlag(Qt::WindowStaysOnTopHint, look.staysOnTop);
    const std::vector<Choice> choices = ChoicesOf(look.buttons);
    QList<QPushButton*> buttons;
    for (const Choice& choice : choices) {
        buttons += box.addButton(choice.text.toString(), choice.role);
    }
    box.setDefaultButton(buttons.front());
    box.setEscapeButton(buttons.back());
    box.exec();
    const auto clicked = std::ranges::find(buttons, box.clickedButton());
    return clicked == buttons.end()
        ? choices.back().answer
        : choices[static_cast<std::size_t>(clicked - buttons.begin())].answer;
}

} // namespace velmora::desktop
