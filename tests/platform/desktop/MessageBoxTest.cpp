// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MessageBox.h"

#include "desktop/DialogParent.h"
#include "tests/support/ModalWindow.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMessageBox>
#include <QProxyStyle>
#include <QStyle>

#include <gtest/gtest.h>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace {

void Press(QWidget& window, const QString& caption)
{
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->text() == caption) {
            button->click();
            return;
        }
    }
    ADD_FAILURE() << "no button " << caption.toStdString();
    window.close();
}

void PressKey(QWidget& window, int key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&window, &press);
}

QStringList CaptionsOf(QWidget& window)
{
    QStringList captions;
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->isVisible()) {
            captions += button->text();
        }
    }
    captions.sort();
    return captions;
}

/// A style that orders the buttons of boxes as some desktop does.
class Ordering final : public QProxyStyle {
public:
    explicit Ordering(QDialogButtonBox::ButtonLayout layout)
        : layout_(layout)
    {
    }
    int styleHint(StyleHint hint,
        const QStyleOption* option,
        const QWidget* widget,
        QStyleHintReturn* more) const override
    {
        return hint == SH_DialogButtonLayout ? layout_
                                             : QProxyStyle::styleHint(hint, option, widget, more);
    }

private:
    QDialogButtonBox::ButtonLayout layout_;
};

/// The program's style is that of a desktop for as long as it lives.
class LaidOut {
public:
    explicit LaidOut(QDialogButtonBox::ButtonLayout layout)
        : before_(QApplication::style()->name())
    {
        QApplication::setStyle(new Ordering(layout)); // which takes it
    }
    ~LaidOut() { QApplication::setStyle(before_); }
    LaidOut(const LaidOut&) = delete;
    LaidOut& operator=(const LaidOut&) = delete;

private:
    QString before_;
};

/// The answer of a box to what the user does.
BoxAnswer AnswerTo(BoxButtons buttons, std::function<void(QWidget&)> user)
{
    const test::ModalWindow modal(std::move(user));
    return ShowMessageBox(u"texte"_s, {.buttons = buttons}, u"Velmora"_s);
}

} // namespace

TEST(MessageBoxTest, EachButtonIsItsAnswer)
{
    const auto press = [](const QString& caption) {
        return [caption](QWidget& window) { Press(window, caption); };
    };
    EXPECT_EQ(AnswerTo(BoxButtons::Ok, press(u"&OK"_s)), BoxAnswer::Ok);
    EXPECT_EQ(AnswerTo(BoxButtons::OkCancel, press(u"&OK"_s)), BoxAnswer::Ok);
    EXPECT_EQ(AnswerTo(BoxButtons::OkCancel, press(u"&Annuler"_s)), BoxAnswer::Cancel);
    EXPECT_EQ(AnswerTo(BoxButtons::YesNo, press(u"&Oui"_s)), BoxAnswer::Yes);
    EXPECT_EQ(AnswerTo(BoxButtons::YesNo, press(u"&Non"_s)), BoxAnswer::No);
}

TEST(MessageBoxTest, TheFirstButtonIsTheDefaultWhereverTheDesktopPutsIt)
{
    const auto enter = [](QWidget& window) { PressKey(window, Qt::Key_Return); };
    for (const auto layout : {QDialogButtonBox::WinLayout,
             QDialogButtonBox::MacLayout,
             QDialogButtonBox::KdeLayout,
             QDialogButtonBox::GnomeLayout,
             QDialogButtonBox::AndroidLayout}) {
        const LaidOut desktop(layout);
        EXPECT_EQ(AnswerTo(BoxButtons::OkCancel, enter), BoxAnswer::Ok) << layout;
        EXPECT_EQ(AnswerTo(BoxButtons::YesNo, enter), BoxAnswer::Yes) << layout;
    }
}

TEST(MessageBoxTest, EscapeAndTheCrossCancelOrSayNo)
{
    const auto escape = [](QWidget& window) { PressKey(window, Qt::Key_Escape); };
    const auto cross = [](QWidget& window) { window.close(); };
    for (const std::function<void(QWidget&)>& leave :
        {std::function<void(QWidget&)>(escape), std::function<void(QWidget&)>(cross)}) {
        EXPECT_EQ(AnswerTo(BoxButtons::Ok, leave), BoxAnswer::Ok);
        EXPECT_EQ(AnswerTo(BoxButtons::OkCancel, leave), BoxAnswer::Cancel);
        EXPECT_EQ(AnswerTo(BoxButtons::YesNo, leave), BoxAnswer::No);
    }
}

TEST(MessageBoxTest, ItBelongsToTheWindowThatIsSeenAndWhatOpensOverItToTheBox)
{
    const QWidget hidden;
    QWidget window;
    window.show();
    bool isOfWindow = false;
    bool isParent = false;
    const test::ModalWindow modal([&](QWidget& box) {
        isOfWindow = box.parentWidget() == &window;
        isParent = DialogParent() == &box;
        box.close();
    });
    ShowMessageBox(u"texte"_s, {}, u"Velmora"_s);
    EXPECT_TRUE(isOfWindow);
    EXPECT_TRUE(isParent);
}

namespace {

struct BoxTexts {
    QString text {};
    QString advice {};

    bool operator==(const BoxTexts&) const = default;
};

/// What a box shows of the texts that it is given.
BoxTexts Shown(const BoxTexts& given)
{
    BoxTexts shown;
    const test::ModalWindow modal([&shown](QWidget& window) {
        const auto& box = dynamic_cast<QMessageBox&>(window);
        shown = {box.text(), box.informativeText()};
        window.close();
    });
    ShowMessageBox(given.text, {.advice = given.advice}, u"Velmora"_s);
    return shown;
}

} // namespace

TEST(MessageBoxTest, AdviceStandsBelowTheText)
{
    const BoxTexts texts {u"texte"_s, u"Que faire"_s};
    EXPECT_EQ(Shown(texts), texts);
}

TEST(MessageBoxTest, AGuillemetStaysWithWhatItEmbraces)
{
    EXPECT_EQ(Shown({u"le groupe « cdrom »."_s, u"« Nouveau » en crée un : essayez"_s}),
        (BoxTexts {
            u"le groupe «\u00A0cdrom\u00A0»."_s, u"«\u00A0Nouveau\u00A0» en crée un : essayez"_s}));
}

TEST(MessageBoxTest, ItShowsWhatItIsGiven)
{
    const BoxLook look {
        .buttons = BoxButtons::YesNo, .icon = BoxIcon::Question, .staysOnTop = true};
    const test::ModalWindow modal([](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.windowTitle(), u"Fichier déjà présent..."_s);
        EXPECT_EQ(box.text(), u"Êtes-vous <b>sûr</b> ?\r\n "_s);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_EQ(CaptionsOf(window), QStringList({u"&Non"_s, u"&Oui"_s}));
        Press(window, u"&Non"_s);
    });
    ShowMessageBox(u"Êtes-vous <b>sûr</b> ?\r\n "_s, look, u"Fichier déjà présent..."_s);
    EXPECT_TRUE(modal.WasThere());
}

TEST(MessageBoxTest, EachIconIsItsOwn)
{
    const auto shown = [](BoxIcon icon) {
        QMessageBox::Icon found {};
        const test::ModalWindow modal([&found](QWidget& window) {
            found = dynamic_cast<QMessageBox&>(window).icon();
            EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
            Press(window, u"&OK"_s);
        });
        ShowMessageBox(u"x"_s, {.icon = icon}, u"Velmora"_s);
        return found;
    };
    EXPECT_EQ(shown(BoxIcon::None), QMessageBox::NoIcon);
    EXPECT_EQ(shown(BoxIcon::Stop), QMessageBox::Critical);
    EXPECT_EQ(shown(BoxIcon::Exclamation), QMessageBox::Warning);
    EXPECT_EQ(shown(BoxIcon::Information), QMessageBox::Information);
}

} // namespace velmora::desktop
