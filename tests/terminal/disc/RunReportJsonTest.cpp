// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/RunReportJson.h"

#include "terminal/console/JsonScreen.h"
#include "terminal/disc/RunTelling.h"
#include "tests/support/PathLiterals.h"
#include "tests/terminal/TranscriptScreen.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;
using namespace test::path_literals;

namespace {

/// A report with every value present.
writing::RunReport FullReport()
{
    return {.ending = writing::RunEnding::Failed,
        .refusal = writing::Refusal::NoRoom,
        .errorNumber = static_cast<qint32>(0xC0AA0007U),
        .errorText = u"Le disque diffère."_s,
        .limitMet = u"Trop de fichiers."_s,
        .recorderId = u"graveur-1"_s,
        .writtenBytes = 4096,
        .tookAllSectors = true,
        .isWritten = true,
        .isEjected = true,
        .comparison = {.end = imapi::ComparisonEnd::Hurt,
            .sectors = 9,
            .sameSectors = 3,
            .places = {{.firstSector = 3, .lastSector = 4, .isUnreadable = true}},
            .hurtFiles = {{.path = u"sub\\a"_disc, .firstByte = 12}},
            .hurtFileCount = 2,
            .isCutShort = true,
            .cause = u"Cause."_s,
            .sha256 = QByteArray::fromHex("00ff")},
        .isLaidOut = true,
        .leftOut = {{.path = u"\\src\\tube"_s, .reason = u"Un tube."_s}},
        .hiddenEntries = {u"\\src\\.x"_path},
        .changedSources = {u"\\src\\grows"_path},
        .changedNames = {{.path = u"a?"_disc, .recorded = u"a_"_s, .fileSystem = u"Joliet"_s}},
        .partlyHeld = {{.path = u"l"_disc, .fileSystem = u"Joliet"_s, .reason = u"Un lien."_s}},
        .nameHazards = {{.path = u"..."_disc, .reason = u"Des points."_s}},
        .linksLeadingOut = {{.path = u"out"_disc, .text = u"/etc"_s}},
        .keepsOtherSums = true,
        .remarks = {u"La trace manque."_s}};
}

} // namespace

TEST(RunReportJsonTest, EverythingOfAReportIsTold)
{
    const QByteArray expected = R"json({
"changedNames":[{"fileSystem":"Joliet","path":"a?","recorded":"a_","text":"Joliet : a? -> a_"}],
"changedSources":[{"path":"/src/grows",
    "text":"« /src/grows » : Modifié pendant la lecture, enregistré tel qu'il a été lu."}],
"comparison":{"cause":"Cause.","end":"hurt","hurtFileCount":2,"hurtFiles":[{"firstByte":12,"path":"sub/a"}],
    "isCutShort":true,"places":[{"firstSector":3,"isUnreadable":true,"lastSector":4}],"sameSectors":3,
    "sectors":9,"sha256":"00ff"},
"ending":"failed","error":{"code":"C0AA0007","number":-1062600697,"text":"Le disque diffère."},
"hiddenEntries":[{"path":"/src/.x","text":"« /src/.x » : Caché, donc pas pris."}],
"isEjected":true,"isLaidOut":true,"isWritten":true,"keepsOtherSums":true,"kind":"disc",
"leftOut":[{"path":"/src/tube","text":"« /src/tube » : Un tube."}],
"limitMet":"Trop de fichiers.",
"linksLeadingOut":[{"path":"out","target":"/etc","text":"out -> /etc (chemin absolu)"}],
"nameHazards":[{"path":"...","text":"« ... » : Des points."}],
"partlyHeld":[{"fileSystem":"Joliet","path":"l","text":"Joliet : « l » : Un lien."}],
"place":"graveur-1","refusal":"noRoom","remarks":["La trace manque."],"target":"disc","tookAllSectors":true,"writtenBytes":4096
})json";
    EXPECT_EQ(QJsonDocument(RunReportObject(FullReport())).toJson().toStdString(),
        QJsonDocument::fromJson(expected).toJson().toStdString());
}

TEST(RunReportJsonTest, ThePlaceOfAFileIsItsPath)
{
    const QJsonObject object = RunReportObject({.target = writing::BurnTarget::IsoFile,
        .recorderId = u"graveur-1"_s,
        .isoFile = text::ProgramPath(u"\\home\\u\\disc.iso"_s)});
    EXPECT_EQ(object[u"place"_s], u"/home/u/disc.iso"_s);
}

TEST(RunReportJsonTest, OnlyAnEraseTellsHowFarItCame)
{
    EXPECT_FALSE(RunReportObject({}).contains(u"eraseExtent"_s));
    EXPECT_EQ(RunReportObject({.eraseExtent = writing::EraseExtent::Unknown})[u"eraseExtent"_s],
        u"unknown"_s);
}

TEST(RunReportJsonTest, WithoutAnErrorThereIsNone)
{
    const QJsonObject object = RunReportObject({.ending = writing::RunEnding::Done});
    EXPECT_FALSE(object.contains(u"error"_s));
    EXPECT_EQ(object[u"ending"_s], u"done"_s);
    EXPECT_EQ(object[u"refusal"_s], u"none"_s);
}

TEST(RunReportJsonTest, WhatTheLogHasSaidIsToldByItsMeaning)
{
    TranscriptScreen out;
    JsonScreen screen(out, "burn", [] { return SteadyTime {}; });
    TellReport(screen, FullReport());
    for (const char* part : {"\"code\":\"C0AA0007\"",
             "\"text\":\"Le disque diffère. Trop de fichiers.\"",
             "\"kind\":\"hurtFile\",\"path\":\"sub/a\"",
             "\"kind\":\"changedSource\",\"path\":\"/src/grows\"",
             "\"kind\":\"hiddenEntry\"",
             "\"kind\":\"afterWrite\",\"text\":\"La trace manque.\""}) {
        EXPECT_TRUE(out.Shows(part)) << part << "\n" << out.Text();
    }
}

TEST(RunReportJsonTest, WhatFailedBehindAGoodDiscIsNoFailure)
{
    TranscriptScreen out;
    JsonScreen screen(out, "burn", [] { return SteadyTime {}; });
    const writing::RunReport report {.ending = writing::RunEnding::Done,
        .errorNumber = -1,
        .errorText = u"Le tiroir ne s'ouvre pas."_s,
        .isWritten = true,
        .comparison = {.end = imapi::ComparisonEnd::Same}};
    TellReport(screen, report);
    EXPECT_FALSE(out.Shows("\"type\":\"error\"")) << out.Text();
    screen.End(ExitCode::Done);
    for (const char* part : {"\"ending\":\"done\",\"error\":{",
             "\"isEjected\":false",
             "\"isWritten\":true",
             "\"ending\":\"done\",\"exitCode\":0"}) {
        EXPECT_TRUE(out.Shows(part)) << part << "\n" << out.Text();
    }
}

} // namespace velmora::terminal
