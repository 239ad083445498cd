// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wizard/WizardFixture.h"

#include <QApplication>

namespace velmora::test {

namespace {

/// As when the user turns to a window or, without one, to another program.
void MakeActive(QWidget* window)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED // in Qt 6.5; its replacement is a request to a window manager
        QApplication::setActiveWindow(window);
    QT_WARNING_POP
}

} // namespace

/// The machine, as long as a program keeps it awake.
class BurnHoldTest : public WizardFixture {
protected:
    BurnHoldTest()
    {
        attendance.hold = [this](const QString& reason) {
            reasons_ += reason;
            ++held_;
            return std::shared_ptr<void>(&held_, [](int* count) { --*count; });
        };
    }
    int held_ = 0;
    QStringList reasons_;
};

TEST_F(BurnHoldTest, TheMachineIsHeldAwakeAsLongAsABurnTakes)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    int heldInTheMiddle = 0;
    When(u"Progression"_s, [&] { heldInTheMiddle = held_; });
    Click("BurnButton_0");
    EXPECT_EQ(heldInTheMiddle, 1);
    EXPECT_EQ(held_, 0);
    EXPECT_EQ(reasons_.last(), u"Velmora grave un disque"_s);
}

TEST_F(BurnHoldTest, TheMachineMayFallAsleepBeforeAQuestion)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    std::vector<int> heldAtBoxes;
    boxes.onBox = [&](QMessageBox&) { heldAtBoxes.push_back(held_); };
    Click("BurnButton_0");
    EXPECT_EQ(heldAtBoxes, std::vector<int>({0}));
    EXPECT_EQ(TextOf("Label14"), u"Gravure effectuée avec succès."_s);
}

TEST_F(BurnHoldTest, AnImageIsMadeAwakeAndSaysSo)
{
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    chooser.files = {text::ToProgramPath((folder / "image.iso").string())};
    Click("BurnButton_1");
    EXPECT_EQ(reasons_.front(), u"Velmora crée une image ISO"_s);
    EXPECT_EQ(held_, 0);
}

/// Whether the user looks at the window while a disc is burned.
class BurnNoticeTest : public WizardFixture { };

TEST_F(BurnNoticeTest, WhoLooksElsewhereIsToldTheEnd)
{
    QStringList told;
    attendance.tell = [&told](const wizard::RunNotice& end) { told += end.title; };
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    When(u"Progression"_s, [] { MakeActive(nullptr); });
    Click("BurnButton_0");
    EXPECT_EQ(told, QStringList(u"Disque gravé"_s));
}

TEST_F(BurnNoticeTest, WhoLooksElsewhereIsToldNoSuccessAfterACancelledPrompt)
{
    QStringList told;
    attendance.tell = [&told](const wizard::RunNotice& end) { told += end.title; };
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    boxes.answers = {u"Annuler"_s};
    boxes.onBox = [this](QMessageBox&) {
        QTimer::singleShot(0, window.get(), [] { MakeActive(nullptr); });
    };
    Click("BurnButton_0");
    EXPECT_EQ(told, QStringList(u"Gravure abandonnée"_s));
    QApplication::restoreOverrideCursor();
}

TEST_F(BurnNoticeTest, WhoSeesTheEndIsNotTold)
{
    QStringList told;
    attendance.tell = [&told](const wizard::RunNotice& end) { told += end.title; };
    OpenWith(u"dvd+r"_s);
    GoToBurn("CorvaneButton2_1");
    When(u"Progression"_s, [this] { MakeActive(window.get()); });
    Click("BurnButton_0");
    EXPECT_EQ(told, QStringList());
}

} // namespace velmora::test
