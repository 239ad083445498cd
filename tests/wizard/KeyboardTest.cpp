// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/WizardFixture.h"

#include <QAccessible>

namespace velmora::test {

class KeyboardTest : public WizardFixture {
protected:
    void SetUp() override
    {
        OpenWith(u"dvd+r"_s);
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    /// Of the buttons and tabs in a part of the window: "" for one without.
    static QStringList Letters(const QWidget& part)
    {
        QStringList letters;
        for (const auto* tabs : part.findChildren<QTabBar*>()) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                letters += QKeySequence::mnemonic(tabs->tabText(tab)).toString();
            }
        }
        for (const auto* button : part.findChildren<QAbstractButton*>()) {
            const bool isOfTabs = qobject_cast<const QTabBar*>(button->parentWidget()) != nullptr;
            const bool isNeverSeen = button->objectName().startsWith(u"Command"_s);
            if (qobject_cast<const QRadioButton*>(button) == nullptr && !isOfTabs && !isNeverSeen) {
                letters += button->shortcut().toString();
            }
        }
        return letters;
    }
    void Press(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }
    /// Presses the tab key until a control has the focus.
    bool TabTo(const char* name) const
    {
        constexpr int kMoreThanAllControls = 60;
        for (int presses = 0; presses < kMoreThanAllControls; ++presses) {
            const QWidget* focus = QApplication::focusWidget();
            if (focus != nullptr && focus->objectName() == QLatin1String(name)) {
                return true;
            }
            QTest::keyClick(
                focus == nullptr ? window.get() : const_cast<QWidget*>(focus), Qt::Key_Tab);
        }
        return false;
    }
};

TEST_F(KeyboardTest, ADiscIsBurnedWithoutTheMouse)
{
    ASSERT_TRUE(TabTo("CorvaneButton2_1"));
    Press(Qt::Key_Space);
    ASSERT_TRUE(IsOnScreen("BurnDataContainer1_0"));
    ASSERT_TRUE(TabTo("MultiSession_0"));
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    EXPECT_TRUE(Find<QRadioButton>("MultiSession_2").isChecked());
    ASSERT_TRUE(TabTo("DVDOptionButton1_0"));
    Press(Qt::Key_Down);
    EXPECT_EQ(TextOf("Label10"), u"8,50 Go"_s.replace(u',', QLocale::system().decimalPoint()));
    Press(Qt::Key_Up);
    ASSERT_TRUE(TabTo("CorvSuivant"));
    Press(Qt::Key_Space);
    ASSERT_TRUE(TabTo("BurnButton_0"));
    Press(Qt::Key_Space);
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s) << Log().toStdString();
    ASSERT_TRUE(Recorder().disc);
    EXPECT_EQ(Recorder().disc->sessions.size(), 1);
}

TEST_F(KeyboardTest, TheTabsAreReachedAndChanged)
{
    ASSERT_TRUE(TabTo("CorvaneTab1"));
    Press(Qt::Key_Right);
    EXPECT_TRUE(IsOnScreen("RootContainer1_3"));
    for (const char* name :
        {"BurnISO", "RepTempTxt", "TempSearch", "GraveurPossibilities", "EraseDiscbutton"}) {
        EXPECT_TRUE(TabTo(name)) << name;
    }
}

TEST_F(KeyboardTest, EveryButtonAndTabHasALetterOfItsOwnOnItsPage)
{
    const QStringList ofBand = Letters(Find<QWidget>("headBand"));
    for (const char* page : {"RootContainer1_0",
             "RootContainer1_1",
             "RootContainer1_2",
             "RootContainer1_3",
             "BurnDataContainer1_0",
             "BurnDataContainer1_1",
             "BurnDataContainer1_2"}) {
        QStringList letters = ofBand + Letters(Find<QWidget>(page));
        EXPECT_FALSE(letters.contains(QString())) << page << letters.join(u' ').toStdString();
        EXPECT_EQ(letters.removeDuplicates(), 0) << page << letters.join(u' ').toStdString();
    }
}

TEST_F(KeyboardTest, AltAndItsLetterPressesAButton)
{
    const auto press = [this](const char* button) {
        const QString letter = Find<QAbstractButton>(button).shortcut().toString().last(1);
        QTest::keyClick(window.get(), letter.front().toLower().toLatin1(), Qt::AltModifier);
    };
    const auto comes = [this](const char* page) { // a button is seen to go down first
        return QTest::qWaitFor([this, page] { return IsOnScreen(page); });
    };
    press("CorvaneButton2_1");
    ASSERT_TRUE(comes("BurnDataContainer1_0"));
    press("CorvSuivant");
    ASSERT_TRUE(comes("BurnDataContainer1_2"));
    press("BurnButton_0");
    EXPECT_TRUE(QTest::qWaitFor([this] {
        return TextOf("Label14") == u"Gravure effectuée avec succès."_s;
    })) << Log().toStdString();
}

TEST_F(KeyboardTest, ARunPutsTheFocusOnItsStopButton)
{
    Click("CorvaneButton2_1");
    Click("CorvSuivant");
    QString focus;
    When(u"Gravure en cours"_s, [this, &focus] {
        focus = window->focusWidget() == nullptr ? QString() : window->focusWidget()->objectName();
    });
    Click("BurnButton_0");
    EXPECT_EQ(focus, u"BurnButton_2"_s);
}

TEST_F(KeyboardTest, EveryControlHasANameForAReader)
{
    const auto controls = window->findChildren<QWidget*>();
    for (QWidget* control : controls) {
        const bool takesPart
            = control->focusPolicy() != Qt::NoFocus && !control->objectName().startsWith(u"qt_"_s);
        if (!takesPart || control->objectName().isEmpty()) {
            continue;
        }
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(reader, nullptr);
        EXPECT_FALSE(reader->text(QAccessible::Name).trimmed().isEmpty())
            << control->objectName().toStdString();
    }
}

} // namespace velmora::test
