// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;

namespace {

Description RichDescription()
{
    Description rich = NewDescription();
    rich.drive.vendor = u"ÉTABLI"_s;
    rich.drive.number = 3;
    rich.drive.canLoadMedia = false;
    rich.drive.realTiming = true;
    rich.drive.speeds[u"bd-r"_s] = {4390};
    rich.drive.delays.calibrate = 0.25;
    rich.trayOpen = true;
    rich.readyAt = 1'700'000'000'123;
    rich.faults = {{.kind = FaultKind::MediumError, .sector = 17, .lasting = true},
        {.kind = FaultKind::TrayStuck}};
    Disc disc;
    disc.medium = FindMedium(u"dvd-rw");
    disc.capacity = 2'298'496;
    disc.sectorFile = u"disc-4.iso"_s;
    disc.sessions = {{.firstSector = 0, .sectors = 100}, {.firstSector = 2148, .sectors = 16}};
    disc.open = drive::SessionFacts {.firstSector = 4212, .sectors = 5};
    disc.writeProtected = true;
    disc.quicklyBlanked = true;
    disc.secondsToReady = 9;
    rich.disc = disc;
    return rich;
}

qint32 ErrorOf(const QByteArray& text)
{
    return velmora::test::ErrorNumberOf([&] { FromText(text); });
}

} // namespace

TEST(DescriptionTest, ComesBackAsItWas)
{
    const Description back = FromText(ToText(RichDescription()));
    EXPECT_EQ(ToText(back), ToText(RichDescription()));
    EXPECT_EQ(back.drive.vendor, u"ÉTABLI"_s);
    EXPECT_EQ(back.drive.delays.calibrate, 0.25);
    EXPECT_EQ(back.readyAt, 1'700'000'000'123);
    ASSERT_TRUE(back.disc);
    EXPECT_EQ(back.disc->medium->profile, 0x14);
    EXPECT_EQ(back.disc->sessions.last().firstSector, 2148);
    EXPECT_EQ(back.disc->open->sectors, 5);
    ASSERT_EQ(back.faults.size(), 2);
    EXPECT_TRUE(back.faults.first().lasting);
}

TEST(DescriptionTest, WhatIsLeftOutIsAsUsual)
{
    const Description back
        = FromText(R"({"version": 1, "disc": {"type": "dvd+r", "sectorFile": "disc-1.iso"}})");
    EXPECT_EQ(back.drive.product, u"VIRTUAL BD-RE"_s);
    EXPECT_FALSE(back.trayOpen);
    EXPECT_EQ(back.disc->capacity, 2'295'104);
    EXPECT_TRUE(back.disc->sessions.isEmpty());
}

TEST(DescriptionTest, ATextThatIsNoneIsRefused)
{
    const qint32 refused = Seen(drive::hresult::kInvalidResponse);
    EXPECT_EQ(ErrorOf(""), refused);
    EXPECT_EQ(ErrorOf("[]"), refused);
    EXPECT_EQ(ErrorOf("{"), refused);
    EXPECT_EQ(ErrorOf("{}"), refused);
    EXPECT_EQ(ErrorOf(R"({"version": 2})"), refused);
    EXPECT_EQ(ErrorOf(R"({"version": 1, "faults": [{"kind": "bad"}]})"), refused);
    EXPECT_EQ(ErrorOf(R"({"version": 1, "drive": {"delays": {"tray": -1}}})"), refused);
}

TEST(DescriptionTest, ADiscThatCantBeIsRefused)
{
    const auto errorOfDisc = [](const char* members) {
        return ErrorOf(
            R"({"version": 1, "disc": {"sectorFile": "disc-1.iso", )" + QByteArray(members) + "}}");
    };
    EXPECT_EQ(errorOfDisc(R"("type": "dvd+r")"), 0);
    const qint32 refused = Seen(drive::hresult::kInvalidResponse);
    EXPECT_EQ(errorOfDisc(R"("type": "tape")"), refused);
    EXPECT_EQ(errorOfDisc(R"("type": "cd-r", "capacity": -1)"), refused);
    EXPECT_EQ(errorOfDisc(R"("type": "cd-r", "capacity": 1e300)"), refused);
    EXPECT_EQ(errorOfDisc(R"("type": "cd-r", "capacity": "x")"), refused);
    EXPECT_EQ(
        errorOfDisc(R"("type": "cd-r", "sessions": [{"first": 0, "sectors": 400000}])"), refused);
    EXPECT_EQ(
        errorOfDisc(R"("type": "cd-r", "sessions": [{"first": 9, "sectors": 9}, {"first": 5}])"),
        refused);
    EXPECT_EQ(errorOfDisc(R"("type": "cd-r", "open": {"first": 400000})"), refused);
}

TEST(DescriptionTest, SectorsLieInTheRecordersFolder)
{
    for (const char* name : {"", "../x.iso", "/etc/passwd", ".hidden", ".."}) {
        EXPECT_EQ(ErrorOf(R"({"version": 1, "disc": {"type": "cd-r", "sectorFile": ")"
                      + QByteArray(name) + "\"}}"),
            Seen(drive::hresult::kInvalidResponse))
            << name;
    }
}

TEST(DescriptionTest, EveryTextIsReadOrRefused)
{
    const QByteArray whole = ToText(RichDescription()).trimmed();
    for (qsizetype at = 0; at < whole.size(); ++at) {
        const qint32 cut = ErrorOf(whole.left(at));
        EXPECT_EQ(cut, Seen(drive::hresult::kInvalidResponse)) << at;
        for (const char sign : {'0', '9', '-', '"', '{', ' '}) {
            QByteArray changed = whole;
            changed[at] = sign;
            const qint32 number = ErrorOf(changed);
            EXPECT_TRUE(number == 0 || number == Seen(drive::hresult::kInvalidResponse)) << at;
        }
    }
}

using BrokenRecorderTest = VirtualBench;

TEST_F(BrokenRecorderTest, ARecorderThatCantBeReadSaysSo)
{
    std::ofstream(folder / "recorders/A/recorder.json") << "{ nothing";
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Identify(); }),
        Seen(drive::hresult::kInvalidResponse));
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kInvalidResponse));
    EXPECT_EQ(Write(1), Seen(drive::hresult::kInvalidResponse));
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Identify(); }),
        Seen(drive::hresult::kInvalidResponse));
}

TEST_F(BrokenRecorderTest, ADiscWithoutItsSectorsCantBeRead)
{
    Insert(u"cd-r", DiscPreset::Closed);
    std::filesystem::remove(recorders.Folder(u"A"_s).SectorPath(Now().disc->sectorFile));
    EXPECT_EQ(ReadError(0), Seen(drive::hresult::kImportReadFailure));
}

} // namespace velmora::virtualdrive::test
