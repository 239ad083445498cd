// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/Handlers.h"

#include "runtime/RuntimeError.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/RecordedMessages.h"
#include "tests/support/WidgetApplication.h"

#include <QApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

class HandlersTest : public testing::Test {
protected:
    static constexpr int kGoesOn = 42;

    /// Answers a wish as the program does, which then ends. @return how it ended
    static int Answered(const Handlers::Answer& answer)
    {
        const QObject owner; // of what is still to come when the answer itself ends the program
        QTimer::singleShot(0, &owner, [&] {
            answer();
            QTimer::singleShot(0, &owner, [] { QApplication::exit(kGoesOn); });
        });
        return QApplication::exec();
    }

    test::RecordedMessages messages;
    int answered = 0;
    Handlers handlers {messages, {}, [this] { ++answered; }};
};

TEST_F(HandlersTest, AServiceThatFailsIsToldAndTheProgramGoesOn)
{
    const auto click
        = handlers.Click([] { throw runtime::RuntimeError(53, u"Pas de gestionnaire."_s); });
    EXPECT_EQ(Answered(click), kGoesOn);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, u"Pas de gestionnaire. (Erreur n° 53)"_s);
    EXPECT_EQ(answered, 1);
}

TEST_F(HandlersTest, AShortageOfMemoryIsToldAndTheProgramGoesOn)
{
    EXPECT_EQ(Answered(handlers.Click([] { throw std::bad_alloc(); })), kGoesOn);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.endsWith(u"(Erreur n° 7)"));
}

TEST_F(HandlersTest, ATaskThatFailsLetsTheNextOneBegin)
{
    const auto failing = handlers.AttendedRun(
        {}, []() -> RunOutcome { throw runtime::RuntimeError(5, u"Panne."_s); });
    EXPECT_EQ(Answered(failing), kGoesOn);
    EXPECT_FALSE(handlers.IsTaskRunning());
    EXPECT_EQ(Answered(failing), kGoesOn);
    EXPECT_EQ(messages.shown.size(), 2U);
}

TEST_F(HandlersTest, WhatIsMeantToEndTheProgramSaysSo)
{
    const auto erase = handlers.AttendedRun(
        {}, []() -> RunOutcome { throw runtime::RuntimeError(91); }, AfterError::End);
    EXPECT_EQ(Answered(erase), EXIT_FAILURE);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(messages.shown[0].text.endsWith(u"Velmora se termine."));
}

} // namespace velmora::wizard
