// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/JsonScreen.h"

#include "tests/terminal/TranscriptScreen.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class JsonScreenTest : public testing::Test {
protected:
    /// The objects so far, in their order.
    QList<QJsonObject> Objects() const
    {
        QList<QJsonObject> objects;
        for (const std::string& line : out.Lines()) {
            EXPECT_TRUE(line.starts_with("= {")) << line;
            EXPECT_EQ(line.find('\n'), std::string::npos) << line;
            objects.append(
                QJsonDocument::fromJson(QByteArray::fromStdString(line.substr(2))).object());
        }
        return objects;
    }

    void Reach(std::uint64_t done)
    {
        screen.Tell(PhaseProgress {JobPhase::WritingImage, Amount {.done = done, .total = 1000}});
    }

    /// What the result says about the end.
    QString EndingOf(ExitCode code, JobEnding reported = JobEnding::AsItsExitCode)
    {
        TranscriptScreen lines;
        JsonScreen ended(lines, "burn", [] { return SteadyTime {}; });
        ended.Tell(JobReport {[] { return QJsonObject {}; }, reported});
        ended.End(code);
        const QByteArray line = QByteArray::fromStdString(lines.Lines().back().substr(2));
        return QJsonDocument::fromJson(line).object()[u"ending"_s].toString();
    }

    SteadyTime now {};
    TranscriptScreen out;
    JsonScreen screen {out, "image", [this] { return now; }};
};

} // namespace

TEST_F(JsonScreenTest, LinesForTheEyeAreLeftOut)
{
    screen.Result("Image : a.iso");
    screen.Notice("Lecture du dossier…");
    screen.Progress("Gravure : 3 %");
    screen.Question("Oui ?");
    EXPECT_TRUE(out.Lines().empty());
}

TEST_F(JsonScreenTest, EachObjectSaysItsTypeAndTheVersion)
{
    screen.Tell(PhaseProgress {JobPhase::ReadingFolder});
    screen.Tell(Failure {.text = "Rien."});
    EXPECT_EQ(out.Text(),
        "= {\"phase\":\"readingFolder\",\"type\":\"phase\",\"version\":1}\n"
        "= {\"text\":\"Rien.\",\"type\":\"error\",\"version\":1}\n");
}

TEST_F(JsonScreenTest, AmountsComeAtMostFourTimesASecond)
{
    for (std::uint64_t done = 0; done < 1000; ++done) { // one second
        Reach(done);
        now += 1ms;
    }
    const auto objects = Objects();
    ASSERT_EQ(objects.size(), 5);
    EXPECT_EQ(objects[0][u"type"_s], u"phase"_s);
    for (int i = 1; i < 5; ++i) {
        EXPECT_EQ(objects[i][u"type"_s], u"progress"_s);
        EXPECT_EQ(objects[i][u"done"_s], (i - 1) * 250);
        EXPECT_EQ(objects[i][u"total"_s], 1000);
        EXPECT_EQ(objects[i][u"unit"_s], u"bytes"_s);
    }
}

TEST_F(JsonScreenTest, TheFirstAmountOfAPhaseIsNotKeptBack)
{
    Reach(1);
    screen.Tell(PhaseProgress {JobPhase::Comparing, Amount {.unit = Unit::Entries, .done = 7}});
    const QJsonObject last = Objects().last();
    EXPECT_EQ(last[u"phase"_s], u"comparing"_s);
    EXPECT_EQ(last[u"done"_s], 7);
    EXPECT_FALSE(last.contains(u"total"_s)) << "it isn't known";
    EXPECT_FALSE(last.contains(u"perSecond"_s));
    EXPECT_FALSE(last.contains(u"secondsLeft"_s));
}

TEST_F(JsonScreenTest, SpeedAndTimeLeftAreTold)
{
    screen.Tell(PhaseProgress {
        JobPhase::Writing, Amount {.done = 1, .total = 2, .perSecond = 1.5, .secondsLeft = 3.25}});
    EXPECT_EQ(Objects().last()[u"perSecond"_s], 1.5);
    EXPECT_EQ(Objects().last()[u"secondsLeft"_s], 3.25);
}

TEST_F(JsonScreenTest, ARemarkHasAWordForItsKind)
{
    screen.Tell(JobRemark {.kind = RemarkKind::ChangedName,
        .path = "a?b",
        .fileSystem = "Joliet",
        .recorded = "a_b",
        .text = "Joliet : a?b -> a_b"});
    EXPECT_EQ(out.Lines().back(),
        "= {\"fileSystem\":\"Joliet\",\"kind\":\"changedName\",\"path\":\"a?b\",\"recorded\":"
        "\"a_b\",\"text\":\"Joliet : a?b -> a_b\",\"type\":\"remark\",\"version\":1}");
}

TEST_F(JsonScreenTest, NamesOfAnyBytesComeBackFromTheirDigits)
{
    screen.Tell(JobRemark {.kind = RemarkKind::LeftOut, .path = "caf\xE9/été", .text = "?"});
    QJsonObject told = Objects().last();
    EXPECT_EQ(told[u"path"_s], u"caf\uFFFD/été"_s);
    EXPECT_EQ(QByteArray::fromHex(told[u"pathBytes"_s].toString().toLatin1()), "caf\xE9/été");
    screen.Tell(JobRemark {.kind = RemarkKind::LeftOut, .path = "\xEF\xBF\xBD", .text = "?"});
    told = Objects().last();
    EXPECT_EQ(told[u"path"_s], u"\uFFFD"_s);
    EXPECT_FALSE(told.contains(u"pathBytes"_s)) << "U+FFFD itself is such a name, and in UTF-8";
}

TEST_F(JsonScreenTest, AnErrorHasItsNumberAndThePublishedCode)
{
    screen.Tell(Failure {.text = "x", .number = 6});
    EXPECT_EQ(Objects().last()[u"number"_s], 6);
    EXPECT_FALSE(Objects().last().contains(u"code"_s));
    screen.Tell(Failure {.text = "x", .number = static_cast<qint32>(0xC0AA0007U)});
    EXPECT_EQ(Objects().last()[u"code"_s], u"C0AA0007"_s);
}

TEST_F(JsonScreenTest, TheResultHasTheReports)
{
    screen.Tell(JobReport {[] { return QJsonObject {{u"kind"_s, u"image"_s}}; }});
    EXPECT_TRUE(out.Lines().empty());
    screen.End(ExitCode::Incomplete);
    EXPECT_EQ(out.Text(),
        "= {\"command\":\"image\",\"ending\":\"done\",\"exitCode\":3,\"reports\":[{\"kind\":"
        "\"image\"}],\"type\":\"result\",\"version\":1}\n");
}

TEST_F(JsonScreenTest, TheEndingFollowsFromExitCodeAndReport)
{
    EXPECT_EQ(EndingOf(ExitCode::Done), u"done"_s);
    EXPECT_EQ(EndingOf(ExitCode::WrongUsage), u"refused"_s);
    EXPECT_EQ(EndingOf(ExitCode::NoDisc), u"refused"_s);
    EXPECT_EQ(EndingOf(ExitCode::Stopped, JobEnding::Refused), u"stopped"_s);
    EXPECT_EQ(EndingOf(ExitCode::Failed), u"failed"_s);
    EXPECT_EQ(EndingOf(ExitCode::Failed, JobEnding::Refused), u"refused"_s);
    EXPECT_EQ(EndingOf(ExitCode::Failed, JobEnding::GivenUp), u"givenUp"_s);
}

} // namespace velmora::terminal
