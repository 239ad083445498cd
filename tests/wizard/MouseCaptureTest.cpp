// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/MouseCapture.h"

#include "tests/support/WidgetApplication.h"

#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace velmora::wizard {

class MouseCaptureTest : public testing::Test {
protected:
    MouseCaptureTest()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&stop);
        layout->addWidget(&other);
        QObject::connect(&stop, &QPushButton::clicked, &stop, [this] { ++stops; });
        QObject::connect(&other, &QPushButton::clicked, &other, [this] { ++others; });
        window.show();
    }

    QWidget window;
    QPushButton stop;
    QPushButton other;
    MouseCapture capture;
    int stops = 0;
    int others = 0;
};

TEST_F(MouseCaptureTest, TheMouseReachesOnlyTheHolder)
{
    capture.SetCapture(stop);
    QTest::mouseClick(&other, Qt::LeftButton);
    QTest::mouseClick(&stop, Qt::LeftButton);
    EXPECT_EQ(others, 0);
    EXPECT_EQ(stops, 1);
    capture.ReleaseCapture();
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_EQ(others, 1);
}

TEST_F(MouseCaptureTest, TheKeyboardStaysFree)
{
    capture.SetCapture(stop);
    QTest::keyClick(&other, Qt::Key_Space);
    EXPECT_EQ(others, 1);
}

TEST_F(MouseCaptureTest, HidingTheHolderFreesTheMouse)
{
    capture.SetCapture(stop);
    stop.hide();
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_EQ(others, 1);
}

TEST_F(MouseCaptureTest, AHolderThatIsGoneFreesTheMouse)
{
    auto* gone = new QPushButton(&window);
    capture.SetCapture(*gone);
    delete gone;
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_EQ(others, 1);
}

TEST_F(MouseCaptureTest, AnotherCaptureTakesTheMouseAway)
{
    capture.SetCapture(stop);
    capture.SetCapture(other);
    QTest::mouseClick(&stop, Qt::LeftButton);
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_EQ(stops, 0);
    EXPECT_EQ(others, 1);
}

TEST_F(MouseCaptureTest, AQuestionStaysInReach)
{
    QDialog question(&window);
    QPushButton yes(&question);
    int answers = 0;
    QObject::connect(&yes, &QPushButton::clicked, &yes, [&] { ++answers; });
    question.setModal(true);
    question.show();
    capture.SetCapture(stop);
    QTest::mouseClick(&yes, Qt::LeftButton);
    EXPECT_EQ(answers, 1);
}

} // namespace velmora::wizard
