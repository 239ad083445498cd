// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/recorder/DetectMediaBench.h"

#include <array>

namespace velmora::test {

class DetectMediaTest : public DetectMediaBench { };

TEST_F(DetectMediaTest, AMarkedRecordIsAnsweredWithoutTouchingAnything)
{
    prompts = true;
    for (const QString& id : {u"@@@@@@@@@@"_s, u"sr0@@@@@@@@@@"_s, u"a@@@@@@@@@@@b"_s}) {
        EXPECT_EQ(Detect(id), u"Ce lecteur est indisponible ou n'est pas un graveur."_s);
    }
    EXPECT_EQ(script.Text(), "");
    EXPECT_EQ(state.MediaFormat, nullptr);
}

TEST_F(DetectMediaTest, NineSignsAreNoMark) { EXPECT_EQ(Detect(u"@@@@@@@@@"_s), u"    CD-R"_s); }

TEST_F(DetectMediaTest, ABlankDiscHasItsNameItsRoomAndItsSpeeds)
{
    imported = true;
    EXPECT_EQ(Detect(), u"    CD-R"_s);

    EXPECT_EQ(script.Text(),
        kOpening + kBusy + kReading
            + "new MsftFileSystemImage\n"
              "ChooseImageDefaultsForMediaType 2\n"
              "MediaHeuristicallyBlank\n"
              "DoEvents\n"
              "freeMediaBlocks\n"
              "image released\n"
              "pointer 1\n");
    EXPECT_TRUE(blank);
    EXPECT_TRUE(imported); // as it was
    EXPECT_EQ(freeBytes, 359'847.0 * 2048);
    EXPECT_EQ(speeds, (std::vector<SpeedEntry> {{3600, 41}, {2400, 27}, {1200, 14}}));
    EXPECT_EQ(doors.seconds, 0);
}

TEST_F(DetectMediaTest, TheWriterOfTheDetectionStays)
{
    Detect();
    const imapi::DiscFormat2DataRef first = state.MediaFormat;
    ASSERT_TRUE(first);
    EXPECT_TRUE(first->Recorder());
    Detect();
    EXPECT_NE(state.MediaFormat, first);
}

TEST_F(DetectMediaTest, RoomBeyondThirtyTwoBitsIsTold)
{
    script.type = 18;
    script.freeBlocks = 24'438'784;
    EXPECT_EQ(Detect(), u"    Blue-Ray Disc R"_s);
    EXPECT_EQ(freeBytes, 50'050'629'632.0);
}

TEST_F(DetectMediaTest, ADiscWithAnImportableSessionIsNotBlank)
{
    script.blank = false;
    blank = true;
    EXPECT_EQ(Detect(), u"    CD-R"_s);

    EXPECT_EQ(script.Text(),
        kOpening + kBusy + kReading
            + "new MsftFileSystemImage\n"
              "ChooseImageDefaultsForMediaType 2\n"
              "MediaHeuristicallyBlank\n"
              "DoEvents\n"
              "MultisessionInterfaces\n"
              "MultisessionInterfaces =\n"
              "ImportFileSystem\n"
              "DoEvents\n"
              "freeMediaBlocks\n"
              "image released\n"
              "pointer 1\n");
    EXPECT_FALSE(blank);
    EXPECT_TRUE(imported);
    EXPECT_EQ(freeBytes, 359'847.0 * 2048);
}

TEST_F(DetectMediaTest, AClosedDiscIsNotImportedAndStillHasItsRoom)
{
    for (const char* member : {"MultisessionInterfaces", "MultisessionInterfaces ="}) {
        script.blank = false;
        script.Fail(member, -1062555300);
        blank = true;
        imported = true;
        freeBytes = -7;
        EXPECT_EQ(Detect(), u"    CD-R"_s);
        EXPECT_FALSE(blank);
        EXPECT_FALSE(imported);
        EXPECT_EQ(freeBytes, 359'847.0 * 2048);
    }
    EXPECT_EQ(script.Count("ImportFileSystem"), 0);
    EXPECT_EQ(doors.seconds, 0);
}

TEST_F(DetectMediaTest, ADiscThatCantBeAskedForBlankCountsAsNotBlankAndNotImported)
{
    script.Fail("MediaHeuristicallyBlank", -1062600181);
    blank = true;
    imported = true;
    EXPECT_EQ(Detect(), u"    CD-R"_s);
    EXPECT_FALSE(blank);
    EXPECT_FALSE(imported);
    EXPECT_EQ(script.Count("MultisessionInterfaces ="), 1);
    EXPECT_EQ(script.Count("ImportFileSystem"), 0);
}

TEST_F(DetectMediaTest, AnImportThatFailsIsRetriedAndThenFinal)
{
    script.blank = false;
    script.Fail("ImportFileSystem", -1062555311, 7);
    imported = true;
    EXPECT_EQ(Detect(), TextOfNumber(1062555311));
    EXPECT_EQ(script.Count("ImportFileSystem"), 7);
    EXPECT_EQ(doors.seconds, 30);
    EXPECT_TRUE(imported);
    EXPECT_EQ(freeBytes, -7);
}

TEST_F(DetectMediaTest, TypeZeroLeavesTheRoomAlone)
{
    script.type = 0;
    blank = true;
    imported = true;
    EXPECT_EQ(Detect(), u"    Lecteur vide ou type de disque non supporté."_s);
    EXPECT_EQ(freeBytes, -7);
    EXPECT_TRUE(blank);
    EXPECT_TRUE(imported);
    EXPECT_EQ(script.Count("new MsftFileSystemImage"), 0);
}

TEST_F(DetectMediaTest, WithoutAPlaceForTheRoomItIsNotAskedFor)
{
    EXPECT_EQ(DetectWithoutRoom(), u"    CD-R"_s);
    EXPECT_EQ(script.Count("new MsftFileSystemImage"), 0);
    EXPECT_FALSE(blank);
}

TEST_F(DetectMediaTest, EveryTypeHasItsNameOrNone)
{
    struct Row {
        qint32 type;
        QString text;
    };
    const std::array rows {
        Row {1, u"    CD-ROM"_s},
        Row {8, u"    DVD+R Dual Layer"_s},
        Row {13, u"    DVD-RW Dual Layer"_s},
        Row {19, u"    Blue-Ray Disc RW"_s},
        Row {12, QString()},
        Row {14, QString()},
        Row {16, QString()},
        Row {20, QString()},
    };
    for (const Row& row : rows) {
        script.type = row.type;
        EXPECT_EQ(Detect(), row.text) << row.type;
        EXPECT_EQ(static_cast<qint32>(type), row.type);
    }
}

TEST_F(DetectMediaTest, ASingleSpeedLeavesItsElementEmpty)
{
    script.speeds = {3600};
    speeds = {{1, 1}, {2, 2}};
    Detect();
    EXPECT_EQ(speeds, std::vector<SpeedEntry> {SpeedEntry {}});
}

TEST_F(DetectMediaTest, SpeedsOfADiscWithoutAFamilyHaveMultipleZero)
{
    script.type = 18;
    script.speeds = {26'340, 8780};
    Detect();
    EXPECT_EQ(speeds, (std::vector<SpeedEntry> {{26'340, 0}, {8780, 0}}));
}

TEST_F(DetectMediaTest, AMultiplePastSixteenBitsIsAFailure)
{
    script.speeds = {32768 * 88};
    EXPECT_EQ(Detect(), TextOfNumber(6));
    EXPECT_EQ(doors.seconds, 30);
}

TEST_F(DetectMediaTest, NoSpeedAtAllIsAFailure)
{
    script.speeds = {};
    EXPECT_EQ(Detect(), TextOfNumber(9));
    EXPECT_EQ(doors.seconds, 30);
}

TEST_F(DetectMediaTest, ADiscIsAskedForBetweenTwoMovesOfTheTray)
{
    prompts = true;
    EXPECT_EQ(Detect(), u"    CD-R"_s);
    EXPECT_TRUE(script.Text().starts_with(
        kOpening + "EjectMedia\n" + kPrompt + "CloseTray\n" + kBusy + "IsRecorderSupported\n"));
}

TEST_F(DetectMediaTest, CancelAtThePromptEndsAtOnce)
{
    prompts = true;
    script.answer = shell::MessageAnswer::Cancel;
    blank = true;
    imported = true;
    EXPECT_EQ(Detect(), QString());
    EXPECT_EQ(script.Text(), kOpening + "EjectMedia\n" + kPrompt);
    EXPECT_TRUE(blank);
    EXPECT_TRUE(imported);
    EXPECT_EQ(freeBytes, -7);
}

TEST_F(DetectMediaTest, TheEndTellsWhatTheTextIs)
{
    using recorder::DetectionEnd;
    Detect();
    EXPECT_EQ(end, DetectionEnd::Named);
    Detect(u"@@@@@@@@@@"_s);
    EXPECT_EQ(end, DetectionEnd::Named); // passes for a disc's name
    script.type = 12;
    Detect();
    EXPECT_EQ(end, DetectionEnd::NoText);
    script.speeds = {};
    Detect();
    EXPECT_EQ(end, DetectionEnd::NoUsableDisc);
    prompts = true;
    script.answer = shell::MessageAnswer::Cancel;
    Detect();
    EXPECT_EQ(end, DetectionEnd::NoText);
}

TEST_F(DetectMediaTest, AFailedMoveOfTheTrayClosesItTwice)
{
    prompts = true;
    script.Fail("EjectMedia", -2147467259);
    EXPECT_EQ(Detect(), u"    CD-R"_s);
    EXPECT_EQ(script.Count("CloseTray"), 2);

    script.Fail("CloseTray", -2147467259, 2);
    EXPECT_EQ(Detect(), u"    CD-R"_s);
    EXPECT_EQ(script.Count("CloseTray"), 4);
    EXPECT_EQ(doors.seconds, 0);
}

TEST_F(DetectMediaTest, ADriveThatSomebodyElseUsesIsToldAtOnce)
{
    constexpr qint32 kLocked = -1062600176;
    script.Fail("IsCurrentMediaSupported", kLocked);
    EXPECT_TRUE(Detect().startsWith(u"Le graveur est vide ou le média n'est pas supporté"_s));
    EXPECT_EQ(end, recorder::DetectionEnd::NoUsableDisc);

    prompts = true;
    script.Fail("EjectMedia", kLocked);
    Detect();
    EXPECT_EQ(end, recorder::DetectionEnd::NoUsableDisc);
    EXPECT_EQ(script.Text().find(kPrompt), std::string::npos) << "no disc could be put in";
    EXPECT_EQ(doors.seconds, 0);
}

} // namespace velmora::test
