// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/drives/DriveJob.h"

#include "mastering/DriveMastering.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeDrive.h"
#include "tests/terminal/TranscriptScreen.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <QTemporaryDir>
#include <QTimeZone>

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;
using drive::DiscState;

namespace {

class DriveJobTest : public testing::Test {
protected:
    std::shared_ptr<test::FakeDrive> Plug(const QString& id, const QString& path)
    {
        auto drive = source->Plug(id);
        drive->facts.vendor = u"PIONEER"_s;
        drive->facts.product = u"BD-RW   BDR-209D"_s;
        drive->facts.revision = u"1.52"_s;
        drive->facts.paths = {path};
        drive->facts.profiles = {27, 9, 8};
        return drive;
    }

    ExitCode Recorders(AnswerForm form = AnswerForm::Table)
    {
        return Run({.question = DriveQuestion::Recorders, .form = form});
    }
    ExitCode Media(std::uint32_t recorder = 0, AnswerForm form = AnswerForm::Table)
    {
        return Run({.question = DriveQuestion::Media, .form = form, .recorder = recorder});
    }
    ExitCode Run(const DriveRequest& request)
    {
        return RunDriveRequest(request, *mastering, records, clock, screen);
    }

    void KeepBurn(const QString& disc, qint64 sectors) const
    {
        const auto trouble
            = records.Keep({.date = QDateTime::fromSecsSinceEpoch(1'700'000'000, QTimeZone::utc()),
                .recorder = u"ACME BURN (/home/lea)"_s,
                .disc = disc,
                .volume = u"Secret"_s,
                .sectors = sectors,
                .sha256 = QByteArray(32, '1'),
                .pieces = QByteArray(16, '2')});
        EXPECT_FALSE(trouble);
    }

    /// What was shown as a result, as another program reads it.
    QJsonDocument Json() const
    {
        QByteArray text = QByteArray::fromStdString(screen.Lines().front());
        EXPECT_TRUE(text.startsWith("= ")) << text.toStdString();
        QJsonParseError error {};
        QJsonDocument document = QJsonDocument::fromJson(text.sliced(2), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << text.toStdString();
        return document;
    }

    test::FakePump pump;
    test::FakeClock clock {pump};
    std::shared_ptr<test::FakeDriveSource> source = std::make_shared<test::FakeDriveSource>();
    std::unique_ptr<imapi::Mastering> mastering = mastering::MasteringOf({source}, clock);
    QTemporaryDir folder;
    records::BurnRecords records {folder.filePath(u"burns"_s)};
    TranscriptScreen screen;
};

} // namespace

TEST_F(DriveJobTest, RecordersAreATable)
{
    Plug(u"a"_s, u"/dev/sr0"_s);
    Plug(u"b"_s, u"/dev/sr10"_s)->facts.profiles = {8, 16};

    EXPECT_EQ(Recorders(), ExitCode::Done);
    EXPECT_EQ(screen.Text(),
        "= N°  Graveur                 Chemin     Disques\n"
        "= 1   PIONEER BD-RW BDR-209D  /dev/sr0   DVD+R, CD-R\n"
        "= 2   PIONEER BD-RW BDR-209D  /dev/sr10  lecture seule\n");
}

TEST_F(DriveJobTest, EachKindOfDiscIsNamedOnce)
{
    Plug(u"a"_s, u"/dev/sr0"_s)->facts.profiles = {67, 66, 65, 43, 42, 22, 21, 20, 19, 18, 10, 2};
    Recorders();
    EXPECT_TRUE(screen.Shows("BD-RE, BD-R, DVD+R DL, DVD+RW DL, DVD-R DL, DVD-RW, DVD-RAM, CD-RW"));
}

TEST_F(DriveJobTest, ARecorderThatMayNotBeOpenedSaysWhatToDo)
{
    Plug(u"/dev/sr0"_s, {})->Fail("Identify", {drive::hresult::kAccessDenied});
    EXPECT_EQ(Recorders(), ExitCode::Done);
    EXPECT_EQ(screen.Text(),
        "= N°  Graveur   Chemin  Disques\n"
        "= 1   /dev/sr0          indisponible\n"
        "! Graveur n° 1 : Accès au graveur refusé : vérifiez que vous avez le droit de vous en "
        "servir.\n");
}

TEST_F(DriveJobTest, WithoutARecorderTheUserIsToldWhatToDo)
{
    EXPECT_EQ(Recorders(), ExitCode::Failed);
    EXPECT_EQ(Media(), ExitCode::Failed);
    const std::string advice
        = "! Erreur : aucun graveur n'a été trouvé.\n"
          "Branchez un graveur, ou faites-en un virtuel : velmora-tray create\n";
    EXPECT_EQ(screen.Text(), advice + advice);
}

TEST_F(DriveJobTest, WithoutARecorderTheJsonListIsEmpty)
{
    EXPECT_EQ(Recorders(AnswerForm::Json), ExitCode::Failed);
    EXPECT_EQ(Json().array().size(), 0);
}

TEST_F(DriveJobTest, RecordersAreAJsonArray)
{
    Plug(u"a"_s, u"/dev/sr0"_s);
    Plug(u"b"_s, u"/dev/sr1"_s)->Fail("Identify", {drive::hresult::kDeviceGone});

    EXPECT_EQ(Recorders(AnswerForm::Json), ExitCode::Done);
    const QJsonArray list = Json().array();
    ASSERT_EQ(list.size(), 2);
    const QJsonObject first = list[0].toObject();
    EXPECT_EQ(first[u"number"].toInt(), 1);
    EXPECT_EQ(first[u"id"].toString(), u"a"_s);
    EXPECT_TRUE(first[u"available"].toBool());
    EXPECT_EQ(first[u"vendor"].toString(), u"PIONEER"_s);
    EXPECT_EQ(first[u"product"].toString(), u"BD-RW   BDR-209D"_s);
    EXPECT_EQ(first[u"revision"].toString(), u"1.52"_s);
    EXPECT_EQ(first[u"path"].toString(), u"/dev/sr0"_s);
    EXPECT_EQ(first[u"discs"].toArray(), (QJsonArray {u"DVD+R"_s, u"CD-R"_s}));
    const QJsonObject second = list[1].toObject();
    EXPECT_FALSE(second[u"available"].toBool());
    EXPECT_EQ(second[u"error"][u"number"].toInt(), -2147024841);
}

TEST_F(DriveJobTest, ADiscIsATable)
{
    const auto drive = Plug(u"a"_s, u"/dev/sr0"_s);
    drive->disc = test::DiscOf(9, DiscState::Appendable);
    drive->disc.freeSectors = 340'000;
    drive->disc.sessions = {{0, 1}, {11'702, 800}};

    EXPECT_EQ(Media(), ExitCode::Done);
    EXPECT_EQ(screen.Text(),
        "= Graveur   1, PIONEER BD-RW BDR-209D (/dev/sr0)\n"
        "= Disque    CD-R\n"
        "= État      ouvert : une session peut suivre\n"
        "= Capacité  737,0 Mo (359 847 secteurs)\n"
        "= Libre     696,3 Mo (340 000 secteurs)\n"
        "= Vitesses  48x, 32x, 16x\n"
        "= Sessions  2 : 2 048 octets (1 secteur) au secteur 0 ; 1 638,4 Ko (800 secteurs) au "
        "secteur 11 702\n");
}

TEST_F(DriveJobTest, EachStateHasItsWords)
{
    struct Row {
        qint32 profile;
        DiscState state;
        bool isBlank;
        const char* words;
    };
    const std::array rows {
        Row {9, DiscState::Blank, true, "= État      vierge\n"},
        Row {9, DiscState::Closed, false, "= État      fermé : plus rien ne peut suivre\n"},
        Row {26, DiscState::Overwritable, true, "= État      réinscriptible directement, vide\n"},
        Row {26,
            DiscState::Overwritable,
            false,
            "= État      réinscriptible directement, contient des données\n"},
        Row {8, DiscState::Closed, false, "= État      lecture seule dans ce lecteur\n"},
    };
    const auto drive = Plug(u"a"_s, u"/dev/sr0"_s);
    for (const Row& row : rows) {
        drive->disc = test::DiscOf(row.profile, row.state);
        drive->disc.heuristicallyBlank = row.isBlank;
        EXPECT_EQ(Media(), ExitCode::Done);
        EXPECT_TRUE(screen.Text().find(row.words) != std::string::npos)
            << row.words << screen.Text();
    }
}

TEST_F(DriveJobTest, SpeedsAreMultiplesOfTheDiscsOwnSingleSpeed)
{
    const auto drive = Plug(u"a"_s, u"/dev/sr0"_s);
    drive->disc = test::DiscOf(26, DiscState::Overwritable);
    drive->disc.writeSpeeds = {5440, 1632};
    Media();
    EXPECT_TRUE(screen.Shows("Vitesses  8x, 2,4x"));
    drive->disc = test::DiscOf(65, DiscState::Blank);
    drive->disc.writeSpeeds = {26'340, 8780};
    Media();
    EXPECT_TRUE(screen.Shows("Vitesses  12x, 4x"));
}

TEST_F(DriveJobTest, ASpeedThatIsAlmostAWholeMultipleIsTold)
{
    const auto drive = Plug(u"a"_s, u"/dev/sr0"_s);
    drive->disc = test::DiscOf(27, DiscState::Blank);
    drive->disc.writeSpeeds = {10'820, 4057}; // 16x and 6x, as drives report them in kilobytes
    Media();
    EXPECT_TRUE(screen.Shows("Vitesses  16x, 6x"));
}

TEST_F(DriveJobTest, ADiscOfUnknownSizeHasNoCapacity)
{
    const auto drive = Plug(u"a"_s, u"/dev/sr0"_s);
    drive->disc = test::DiscOf(8, DiscState::Closed);
    drive->disc.totalSectors = 0;
    Media();
    EXPECT_FALSE(screen.Shows("Capacité"));
}

TEST_F(DriveJobTest, ADiscIsAJsonObject)
{
    const auto drive = Plug(u"a"_s, u"/dev/sr0"_s);
    drive->disc = test::DiscOf(9, DiscState::Appendable);
    drive->disc.freeSectors = 340'000;
    drive->disc.sessions = {{0, 500}};

    EXPECT_EQ(Media(0, AnswerForm::Json), ExitCode::Done);
    const QJsonObject disc = Json().object();
    EXPECT_EQ(disc[u"recorder"][u"number"].toInt(), 1);
    EXPECT_EQ(disc[u"type"].toString(), u"CD-R"_s);
    EXPECT_EQ(disc[u"typeNumber"].toInt(), 2);
    EXPECT_EQ(disc[u"state"].toArray(), QJsonArray {u"appendable"_s});
    EXPECT_TRUE(disc[u"recordable"].toBool());
    EXPECT_FALSE(disc[u"blank"].toBool());
    EXPECT_EQ(disc[u"capacityBytes"].toInteger(), 736'966'656);
    EXPECT_EQ(disc[u"freeBytes"].toInteger(), 696'320'000);
    EXPECT_EQ(disc[u"speeds"][0][u"sectorsPerSecond"].toInt(), 3600);
    EXPECT_EQ(disc[u"speeds"][0][u"multiple"].toDouble(), 48);
    EXPECT_EQ(disc[u"sessions"][0][u"sectors"].toInt(), 500);
}

TEST_F(DriveJobTest, AnEmptyDriveHasAnExitCodeOfItsOwn)
{
    Plug(u"a"_s, u"/dev/sr0"_s);
    EXPECT_EQ(Media(), ExitCode::NoDisc);
    EXPECT_EQ(screen.Text(),
        "= Graveur  1, PIONEER BD-RW BDR-209D (/dev/sr0)\n"
        "= Disque   aucun\n"
        "! Le lecteur est vide : mettez-y un disque, puis recommencez.\n");
}

TEST_F(DriveJobTest, AnEmptyDriveHasNoTypeInJson)
{
    Plug(u"a"_s, u"/dev/sr0"_s);
    EXPECT_EQ(Media(0, AnswerForm::Json), ExitCode::NoDisc);
    EXPECT_TRUE(Json().object()[u"type"].isNull());
}

TEST_F(DriveJobTest, TheRecorderIsTakenByItsNumber)
{
    Plug(u"a"_s, u"/dev/sr0"_s);
    Plug(u"b"_s, u"/dev/sr1"_s)->disc = test::DiscOf(27, DiscState::Blank);
    EXPECT_EQ(Media(2), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("2, PIONEER BD-RW BDR-209D (/dev/sr1)"));
    EXPECT_TRUE(screen.Shows("DVD+R"));
}

TEST_F(DriveJobTest, WithoutANumberTheFirstThatAnswersIsTaken)
{
    Plug(u"a"_s, u"/dev/sr0"_s)->Fail("Identify", {drive::hresult::kAccessDenied});
    Plug(u"b"_s, u"/dev/sr1"_s)->disc = test::DiscOf(27, DiscState::Blank);
    EXPECT_EQ(Media(), ExitCode::Done);
    EXPECT_TRUE(screen.Shows("(/dev/sr1)"));
}

TEST_F(DriveJobTest, ANumberBeyondTheListIsToldSo)
{
    Plug(u"a"_s, u"/dev/sr0"_s);
    EXPECT_EQ(Media(2), ExitCode::Failed);
    EXPECT_EQ(screen.Text(),
        "! Erreur : il n'y a pas de graveur n° 2 : « velmora-cli recorders » en donne la liste.\n");
}

TEST_F(DriveJobTest, ARecorderThatMayNotBeOpenedHasNoDisc)
{
    Plug(u"a"_s, u"/dev/sr0"_s)->Fail("Identify", {drive::hresult::kAccessDenied});
    EXPECT_EQ(Media(1), ExitCode::Failed);
    EXPECT_EQ(screen.Text(),
        "! Erreur : Accès au graveur refusé : vérifiez que vous avez le droit de vous en "
        "servir.\n");
}

// The remedy differs from drive to drive: each one's description tells it.
TEST_F(DriveJobTest, ADriveInUseIsToldInItsOwnWords)
{
    Plug(u"a"_s, u"/dev/sr0"_s)->Fail("Examine", {drive::hresult::kRecorderLocked});
    EXPECT_EQ(Media(), ExitCode::Failed);
    EXPECT_EQ(screen.Text(),
        "! Erreur : Le graveur est verrouillé par une autre application : fermez-la, puis "
        "recommencez.\n");
}

TEST_F(DriveJobTest, AnyOtherFailureHasItsNumber)
{
    Plug(u"a"_s, u"/dev/sr0"_s)->Fail("Examine", {drive::hresult::kUpsideDown});
    EXPECT_EQ(Media(), ExitCode::Failed);
    EXPECT_EQ(
        screen.Text(), "! Erreur : Le média est inséré à l'envers. (erreur n° -1062600188)\n");
}

TEST_F(DriveJobTest, ADriveThatIsGettingReadyIsWaitedFor)
{
    const auto drive = Plug(u"a"_s, u"/dev/sr0"_s);
    drive->disc = test::DiscOf(27, DiscState::Blank);
    drive->Fail("Examine",
        {drive::hresult::kBecomingReady,
            drive::hresult::kFormatInProgress,
            drive::hresult::kMediaBusy});
    EXPECT_EQ(Media(), ExitCode::Done);
    EXPECT_EQ(
        screen.Lines().front(), "! Le lecteur se prépare ; patience, une demi-minute environ.");
    EXPECT_EQ(clock.Timer(), 3);
}

TEST_F(DriveJobTest, ADriveThatNeverGetsReadyFailsAfterHalfAMinute)
{
    const auto drive = Plug(u"a"_s, u"/dev/sr0"_s);
    for (int i = 0; i < 31; ++i) {
        drive->Fail("Examine", {drive::hresult::kBecomingReady});
    }
    EXPECT_EQ(Media(), ExitCode::Failed);
    EXPECT_EQ(clock.Timer(), 30);
    EXPECT_TRUE(screen.Shows("Erreur : Le lecteur n'est pas encore prêt : attendez un instant."));
}

TEST_F(DriveJobTest, WordsOfADriveDoNothingToATerminal)
{
    Plug(u"a"_s, u"/dev/sr0"_s)->facts.vendor = u"\x1B[31m"_s;
    Recorders();
    EXPECT_FALSE(screen.Shows("\x1B"));
}

TEST_F(DriveJobTest, AReportTellsTheDriveAndItsLastBurnAndNoNames)
{
    Plug(u"virtual:lea"_s, u"/home/lea/recorders"_s);
    KeepBurn(u"CD-R"_s, 300);
    KeepBurn(u"BD-R"_s, 500);

    EXPECT_EQ(Run({.question = DriveQuestion::Report}), ExitCode::Done);

    const QJsonObject report = Json().object();
    EXPECT_EQ(report[u"recorder"_s][u"product"_s].toString(), u"BD-RW   BDR-209D"_s);
    EXPECT_EQ(report[u"lastBurn"_s][u"disc"_s].toString(), u"BD-R"_s);
    EXPECT_EQ(report[u"lastBurn"_s][u"sectors"_s].toInteger(), 500);
    EXPECT_FALSE(report[u"velmora"_s].toString().isEmpty());
    EXPECT_FALSE(report.contains(u"lastFailure"_s)) << "no write has failed";
    EXPECT_EQ(screen.Text().find("lea"), std::string::npos) << screen.Text();
    EXPECT_EQ(screen.Text().find("Secret"), std::string::npos) << screen.Text();
}

TEST_F(DriveJobTest, AReportTellsHowTheLastWriteFailed)
{
    Plug(u"a"_s, u"/dev/sr0"_s);
    records.KeepFailure({.date = QDateTime({2026, 3, 9}, {7, 5, 4}, QTimeZone::utc()),
        .disc = u"DVD+R"_s,
        .step = u"writing"_s,
        .number = drive::hresult::kWriteError,
        .sense = u"03/0C/09"_s});
    EXPECT_EQ(Run({.question = DriveQuestion::Report}), ExitCode::Done);
    const QJsonObject failure = Json().object()[u"lastFailure"_s].toObject();
    EXPECT_EQ(failure[u"date"_s].toString(), u"2026-03-09T07:05:04Z"_s);
    EXPECT_EQ(failure[u"step"_s].toString(), u"writing"_s);
    EXPECT_EQ(failure[u"error"_s].toInteger(), drive::hresult::kWriteError);
    EXPECT_EQ(failure[u"sense"_s].toString(), u"03/0C/09"_s);
}

TEST_F(DriveJobTest, AReportOfADriveThatFailsTellsTheNumber)
{
    Plug(u"a"_s, u"/dev/sr0"_s)->Fail("Examine", {drive::hresult::kRecorderLocked});

    EXPECT_EQ(Run({.question = DriveQuestion::Report}), ExitCode::Done);

    EXPECT_EQ(Json().object()[u"error"_s].toInteger(), drive::hresult::kRecorderLocked);
}

} // namespace velmora::terminal
