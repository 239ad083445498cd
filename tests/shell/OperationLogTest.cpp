// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/OperationLog.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;

namespace {

/// Builds the text that a box would show from the log's notifications.
class BoxView final : public shell::LogView {
public:
    void LogCleared() override { text.clear(); }
    void LogAppended(const QString& added) override { text += added; }

    QString text;
};

} // namespace

TEST(OperationLogTest, EachLineButTheFirstHasOneLineBreakBeforeIt)
{
    shell::OperationLog log;
    log.ShowLog(u"a"_s, false);
    EXPECT_EQ(log.Text(), u"a"_s);
    log.ShowLog(u"b"_s, false);
    log.ShowLog(u"    c "_s, false);
    EXPECT_EQ(log.Text(), u"a\r\nb\r\n    c "_s);
}

TEST(OperationLogTest, AnEmptyTextWithClearEmptiesTheLog)
{
    shell::OperationLog log;
    log.ShowLog(u"a"_s, false);
    log.ShowLog(QString(), true);
    EXPECT_EQ(log.Text(), QString());
}

TEST(OperationLogTest, AnEmptyTextWithoutClearChangesNothing)
{
    shell::OperationLog log;
    log.ShowLog(QString(), false);
    EXPECT_EQ(log.Text(), QString());
    log.ShowLog(u"a"_s, false);
    log.ShowLog(QString(), false);
    EXPECT_EQ(log.Text(), u"a"_s);
}

TEST(OperationLogTest, ALineWithClearIsAlone)
{
    shell::OperationLog log;
    log.ShowLog(u"a"_s, false);
    log.ShowLog(u"x"_s, true);
    EXPECT_EQ(log.Text(), u"x"_s);
}

TEST(OperationLogTest, ATextWithALineBreakMakesTwoLines)
{
    shell::OperationLog log;
    log.ShowLog(u"a\r\nb"_s, false);
    log.ShowLog(u"c"_s, false);
    EXPECT_EQ(log.Text(), u"a\r\nb\r\nc"_s);
}

TEST(OperationLogTest, TheLogIsNeverTrimmed)
{
    shell::OperationLog log;
    const QString line(99, u'x');
    for (int i = 0; i < 10000; ++i) {
        log.ShowLog(line, false);
    }
    EXPECT_EQ(log.Text().size(), 10000 * 99 + 9999 * 2);
}

TEST(OperationLogTest, EveryViewShowsTheSameText)
{
    shell::OperationLog log;
    BoxView window;
    BoxView terminal;
    log.AddView(window);
    log.AddView(terminal);
    log.ShowLog(u"a"_s, false);
    log.ShowLog(u"b"_s, false);
    EXPECT_EQ(window.text, u"a\r\nb"_s);
    log.ShowLog(u"c"_s, true);
    EXPECT_EQ(window.text, u"c"_s);
    EXPECT_EQ(terminal.text, u"c"_s);
}

TEST(OperationLogTest, ARemovedViewIsToldNothingMore)
{
    shell::OperationLog log;
    BoxView view;
    log.AddView(view);
    log.ShowLog(u"a"_s, false);
    log.RemoveView(view);
    log.ShowLog(u"b"_s, false);
    EXPECT_EQ(view.text, u"a"_s);
}
