// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/ReportUnhandled.h"

#include "runtime/RuntimeError.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/RecordedMessages.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

TEST(ReportUnhandledTest, AWishThatIsNotGrantedIsToldWithoutTheEnd)
{
    test::RecordedMessages messages;
    ReportUnhandled(runtime::RuntimeError(53, u"Aucun gestionnaire de fichiers."_s),
        AfterError::GoOn,
        messages);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Velmora"_s);
    EXPECT_EQ(messages.shown[0].style, 48);
    EXPECT_EQ(messages.shown[0].text, u"Aucun gestionnaire de fichiers. (Erreur n° 53)"_s);
}

TEST(ReportUnhandledTest, TheBoxBeforeTheEndHasTheNumberAndTheDescription)
{
    test::RecordedMessages messages;
    ReportUnhandled(
        runtime::RuntimeError(runtime::error::kObjectNotSet), AfterError::End, messages);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].title, u"Velmora"_s);
    EXPECT_EQ(messages.shown[0].style, 16);
    EXPECT_EQ(messages.shown[0].text,
        u"Erreur d'exécution '91':\r\n\r\nVariable objet ou variable de bloc With non définie"
        "\r\n\r\nVelmora se termine."_s);
}

} // namespace velmora::wizard
