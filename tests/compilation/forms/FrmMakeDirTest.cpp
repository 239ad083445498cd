// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/forms/FrmMakeDir.h"

#include "compilation/CompilationList.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/WidgetApplication.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace velmora::compilation {

using namespace Qt::StringLiterals;

namespace {

class FrmMakeDirTest : public testing::Test {
protected:
    void AddRow(const QString& text) { list_.Add(text, text::DiscPath(text), u"FD"_s); }

    template <class Child> static Child& Find(FrmMakeDir& window, const char* name)
    {
        return *window.findChild<Child*>(QString::fromLatin1(name));
    }
    static void Click(FrmMakeDir& window, const char* name)
    {
        Find<QPushButton>(window, name).click();
    }
    static void Type(FrmMakeDir& window, const QString& text)
    {
        Find<QLineEdit>(window, "Text1").setText(text);
    }

    CompilationList list_;
};

} // namespace

TEST_F(FrmMakeDirTest, ItsTextsAreWhatAPersonReads)
{
    FrmMakeDir window(list_);
    EXPECT_EQ(window.windowTitle(), u"Créer un répertoire"_s);
    EXPECT_EQ(Find<QLabel>(window, "Label2").text(), u"Choisir le répertoire racine :"_s);
    EXPECT_EQ(Find<QLabel>(window, "Label1").text(), u"Saisir le nom du répertoire"_s);
    EXPECT_EQ(Find<QPushButton>(window, "Command2").text(), u"&Ok"_s);
    EXPECT_EQ(Find<QPushButton>(window, "Command1").text(), u"&Annuler"_s);
    EXPECT_EQ(Find<QComboBox>(window, "Combo1").currentText(), u"Racine du disque à graver"_s);
    EXPECT_EQ(Find<QLineEdit>(window, "Text1").text(), QString());
}

TEST_F(FrmMakeDirTest, ADirectoryIsMadeInTheRootUnlessAnotherIsChosen)
{
    AddRow(u"A\\"_s);
    AddRow(u"a.txt"_s);
    AddRow(u"B\\"_s);
    FrmMakeDir window(list_);
    EXPECT_EQ(Find<QComboBox>(window, "Combo1").count(), 3);
    Type(window, u"New"_s);
    Click(window, "Command2");
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(window.NewDirectoryPath().Text(), u"New\\"_s);

    FrmMakeDir second(list_);
    Find<QComboBox>(second, "Combo1").setCurrentIndex(2);
    Type(second, u"New"_s);
    Click(second, "Command2");
    EXPECT_EQ(second.NewDirectoryPath().Text(), u"B\\New\\"_s);
}

TEST_F(FrmMakeDirTest, NamesThatCannotBeReadLeadToTheirOwnDirectory)
{
    const QString unreadable = u"caf"_s + QChar(0xDCE9) + u'\\';
    AddRow(unreadable);
    FrmMakeDir window(list_);
    EXPECT_EQ(Find<QComboBox>(window, "Combo1").itemText(1), u"caf\uFFFD\\"_s);
    Find<QComboBox>(window, "Combo1").setCurrentIndex(1);
    Type(window, u"New"_s);
    Click(window, "Command2");
    EXPECT_EQ(window.NewDirectoryPath().Text(), unreadable + u"New\\"_s);
}

TEST_F(FrmMakeDirTest, WithoutANameOkLeavesTheWindowOpenAtTheName)
{
    FrmMakeDir window(list_);
    window.show();
    Find<QComboBox>(window, "Combo1").setFocus();
    Click(window, "Command2");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.NewDirectoryPath().Text(), QString());
    EXPECT_EQ(window.focusWidget(), &Find<QLineEdit>(window, "Text1"));
}

TEST_F(FrmMakeDirTest, CancelTheEscapeKeyAndClosingMakeNothing)
{
    for (const auto giveUp : {+[](FrmMakeDir& window) { Click(window, "Command1"); },
             +[](FrmMakeDir& window) { window.close(); },
             +[](FrmMakeDir& window) { window.reject(); }}) {
        FrmMakeDir window(list_);
        window.show();
        Type(window, u"New"_s);
        giveUp(window);
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(window.result(), QDialog::Rejected);
        EXPECT_EQ(window.NewDirectoryPath().Text(), QString());
    }
}

TEST_F(FrmMakeDirTest, TheNameHasTheFocusAndIsSelectedWhenItGetsIt)
{
    FrmMakeDir window(list_);
    window.show();
    window.activateWindow();
    QLineEdit& name = Find<QLineEdit>(window, "Text1");
    EXPECT_EQ(window.focusWidget(), &name);
    name.setText(u"New"_s);
    QFocusEvent focus(QEvent::FocusIn, Qt::OtherFocusReason);
    QApplication::sendEvent(&name, &focus);
    EXPECT_EQ(name.selectedText(), u"New"_s);
}
} // namespace velmora::compilation
