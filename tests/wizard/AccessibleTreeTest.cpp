// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/AccessibleWidgets.h"
#include "tests/support/QtPrinters.h"
#include "tests/wizard/WizardFixture.h"

#include <QAccessible>

#include <algorithm>
#include <set>

namespace velmora::test {

namespace {

bool IsControl(QAccessible::Role role)
{
    static const std::set<QAccessible::Role> kControls {QAccessible::Button,
        QAccessible::CheckBox,
        QAccessible::RadioButton,
        QAccessible::ComboBox,
        QAccessible::EditableText,
        QAccessible::ProgressBar,
        QAccessible::PageTab,
        QAccessible::PageTabList,
        QAccessible::Tree};
    return kControls.contains(role);
}

std::string Described(QAccessibleInterface& node)
{
    const QObject* object = node.object();
    return object != nullptr ? object->objectName().toStdString() : "a part without an object";
}

} // namespace

/// The window as a screen reader sees it.
class AccessibleTreeTest : public WizardFixture {
protected:
    AccessibleTreeTest() { desktop::ServeScreenReaders(); }

    using Visit = std::function<void(QAccessibleInterface&)>;
    /// Visits everything visible.
    static void Walk(QAccessibleInterface& node, const Visit& visit)
    {
        visit(node);
        for (int i = 0; i < node.childCount(); ++i) {
            QAccessibleInterface* child = node.child(i);
            if (child != nullptr && !child->state().invisible) {
                Walk(*child, visit);
            }
        }
    }
    static QAccessibleInterface& Root(QWidget& top)
    {
        return *QAccessible::queryAccessibleInterface(&top);
    }
    static QAccessibleInterface& Node(QWidget& top, QAccessible::Role role, const QString& name)
    {
        QAccessibleInterface* found = nullptr;
        Walk(Root(top), [&](QAccessibleInterface& node) {
            if (node.role() == role
                && node.text(QAccessible::Name).remove(u'&').trimmed() == name) {
                found = &node;
            }
        });
        if (found == nullptr) {
            throw std::runtime_error("no part named " + name.toStdString());
        }
        return *found;
    }
    static void Press(QWidget& top, QAccessible::Role role, const QString& name)
    {
        QAccessibleInterface& node = Node(top, role, name);
        QAccessibleActionInterface* actions = node.actionInterface();
        if (actions == nullptr) {
            throw std::runtime_error("nothing can be done with " + name.toStdString());
        }
        const QStringList names = actions->actionNames();
        const QString press = QAccessibleActionInterface::pressAction();
        actions->doAction(
            names.contains(press) ? press : QAccessibleActionInterface::toggleAction());
        // Qt's own buttons go down and come up again.
        if (const auto* button = qobject_cast<QAbstractButton*>(node.object())) {
            EXPECT_TRUE(QTest::qWaitFor([button] { return !button->isDown(); }));
        }
    }
    void Press(const QString& name) { Press(*window, QAccessible::Button, name); }

    /// Each control says what it is and how it is called, each label its text.
    void ExpectThatAllIsTold(const char* where)
    {
        int controls = 0;
        Walk(Root(*window), [&](QAccessibleInterface& node) {
            if (IsControl(node.role())) {
                ++controls;
                EXPECT_FALSE(node.text(QAccessible::Name).trimmed().isEmpty())
                    << where << ": " << Described(node);
            }
            if (node.state().focusable) {
                EXPECT_NE(node.role(), QAccessible::Client) << where << ": " << Described(node);
            }
            if (const auto* label = qobject_cast<QLabel*>(node.object());
                label != nullptr && label->buddy() == nullptr && label->pixmap().isNull()) {
                EXPECT_EQ(node.role(), QAccessible::StaticText) << Described(node);
                EXPECT_EQ(node.text(QAccessible::Name), label->text())
                    << where << ": " << Described(node);
            }
        });
        EXPECT_GT(controls, 4) << where;
    }

    /// Records what is announced about a page from now on.
    void Listen(const char* page)
    {
        pump.onPump = [this, page] {
            const QString words = Find<QWidget>(page).accessibleDescription();
            if (!words.isEmpty() && (announced.isEmpty() || announced.last() != words)) {
                announced += words;
            }
        };
    }

    QStringList announced;
};

TEST_F(AccessibleTreeTest, TheWindowIsAWindowWithItsTitle)
{
    OpenWith(u"dvd+r"_s);
    EXPECT_EQ(Root(*window).role(), QAccessible::Window);
    EXPECT_EQ(Root(*window).text(QAccessible::Name), u"Velmora"_s);
}

TEST_F(AccessibleTreeTest, EveryPageIsTold)
{
    OpenWith(u"dvd+r"_s);
    ExpectThatAllIsTold("formats");
    for (const char* tile :
        {"CorvaneButton2_0", "CorvaneButton2_1", "CorvaneButton2_2", "CorvaneButton2_3"}) {
        Click(tile);
        ExpectThatAllIsTold(tile);
        Click("CorvaneButton1");
    }
    Find<QTabBar>("CorvaneTab1").setCurrentIndex(1);
    ExpectThatAllIsTold("configuration");
    Find<QTabBar>("CorvaneTab1").setCurrentIndex(0);
    Click("CorvaneButton2_1");
    Click("CorvFichiers");
    ExpectThatAllIsTold("list");
}

TEST_F(AccessibleTreeTest, ADiscIsBurnedByTheAccessibleTreeAlone)
{
    OpenWith(u"dvd+r"_s);
    Press(u"Disque DVD"_s);
    Press(*window, QAccessible::RadioButton, u"Pas de Multisession"_s);
    Press(u"Suivant"_s);
    ExpectThatAllIsTold("before the burn");
    bool wasSeen = false;
    When(u"Progression"_s, [this, &wasSeen] {
        wasSeen = true;
        ExpectThatAllIsTold("during the burn");
    });
    Press(u"Graver"_s);
    EXPECT_TRUE(wasSeen);
    ExpectThatAllIsTold("after the burn");
    EXPECT_EQ(Node(*window, QAccessible::StaticText, u"Gravure effectuée avec succès."_s).object(),
        &Find<QLabel>("Label14"));
    ASSERT_TRUE(Recorder().disc);
    EXPECT_EQ(Recorder().disc->sessions.size(), 1);
}

TEST_F(AccessibleTreeTest, WhatScrollsByKeysIsTold)
{
    recorders.Create(u"graveur"_s);
    Open();
    window->setMinimumSize(640, 360);
    window->resize(640, 360);
    GoToBurn("CorvaneButton2_1");
    boxes.answers = {u"OK"_s, u"Non"_s};
    Click("BurnButton_0");
    QCoreApplication::processEvents();
    ASSERT_NE(Find<QWidget>("phaseScroll").focusPolicy(), Qt::NoFocus);
    ExpectThatAllIsTold("a low window");
}

TEST_F(AccessibleTreeTest, ARunIsAnnouncedWhileItGoesOn)
{
    OpenWith(u"dvd+r"_s);
    Click("CorvaneButton2_1");
    Click("CorvSuivant");
    Listen("BurnDataContainer1_2");
    Click("BurnButton_0");
    pump.onPump();
    EXPECT_TRUE(announced.contains(u"100\u00A0%"_s)) << announced.join(u'\n').toStdString();
    ASSERT_FALSE(announced.isEmpty());
    EXPECT_EQ(announced.last(), u"Gravure effectuée avec succès."_s);
    EXPECT_LT(announced.size(), 60) << announced.join(u'\n').toStdString();
    EXPECT_EQ(std::ranges::count(announced, u"Gravure effectuée avec succès."_s), 1);
}

TEST_F(AccessibleTreeTest, AnEraseIsAnnounced)
{
    MakeRecorder(u"graveur"_s, u"cd-rw"_s);
    Open();
    Find<QTabBar>("CorvaneTab1").setCurrentIndex(1);
    boxes.answers = {u"Oui"_s, u"OK"_s, u"Oui"_s};
    Listen("RootContainer1_3");
    Press(u"Effacer un disque RW"_s);
    pump.onPump();
    ASSERT_FALSE(announced.isEmpty());
    EXPECT_EQ(announced.last(), TextOf("lblErase").simplified());
}

} // namespace velmora::test
