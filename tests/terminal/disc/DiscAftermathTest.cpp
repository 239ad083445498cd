// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/DiscAftermath.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/terminal/disc/DiscJobBench.h"

namespace velmora::terminal {

using namespace Qt::StringLiterals;
using drive::DiscState;
using drive::WriteAction;

class DiscAftermathTest : public DiscJobBench {
protected:
    void Insert(qint32 profile, DiscState state)
    {
        drive->disc = test::DiscOf(profile, state);
        drive->disc.erasable = drive::IsErasable(drive::MediaTypeOfProfile(profile));
        drive->disc.heuristicallyBlank = state == DiscState::Blank;
    }

    void Look()
    {
        test::ErrorNumberOf([this] { watched->Examine(); });
    }

    /// A write that ends when the drive has reported this many sectors.
    void Write(qint64 sectors, qint64 startSector = 0)
    {
        Look();
        drive->reports = {{.action = WriteAction::WritingData,
            .startSector = startSector,
            .lastWrittenSector = startSector + sectors}};
        const drive::WriteOrder order {.source = [](std::span<std::byte>) {}, .sectors = 100};
        EXPECT_NE(test::ErrorNumberOf([&] {
            watched->Write(order, [](const drive::WriteProgress&) { return false; });
        }),
            0);
    }

    std::string Words()
    {
        const DiscContext context = Context();
        return DiscAftermath(context, u"a"_s).Words();
    }
    std::string WordsOfStop(bool tookAllSectors)
    {
        const DiscContext context = Context();
        return DiscAftermath(context, u"a"_s).WordsOfStop(tookAllSectors);
    }
    std::string Advice()
    {
        const DiscContext context = Context();
        return DiscAftermath(context, u"a"_s).AdviceToErase();
    }

    mastering::DriveSources sources = Witnessed({source}, witness);
    drive::DriveRef watched = sources.front()->Open(u"a"_s);
};

TEST_F(DiscAftermathTest, AWriteOnceDiscThatGotSectorsIsSpoiled)
{
    for (const qint32 profile : {0x09, 0x11, 0x1B, 0x2B, 0x41}) {
        Insert(profile, DiscState::Blank);
        Write(1);
        EXPECT_EQ(Words(), "le disque est inachevé et ne peut pas servir.") << profile;
    }
}

TEST_F(DiscAftermathTest, ARewritableDiscThatGotSectorsIsErasedAndUsedAgain)
{
    for (const qint32 profile : {0x0A, 0x12, 0x13, 0x14, 0x1A, 0x43}) {
        Insert(profile, DiscState::Blank);
        Write(1);
        EXPECT_EQ(Words(),
            "le disque est inachevé ; effacez-le (« velmora-cli erase ») pour vous en resservir.")
            << profile;
    }
}

// The drive ends what it has written, whoever stops meanwhile.
TEST_F(DiscAftermathTest, ADiscThatGotAllSectorsBeforeAStopIsNotCalledUseless)
{
    for (const qint32 profile : {0x09, 0x1B, 0x43}) {
        Insert(profile, DiscState::Blank);
        Write(100, 32);
        EXPECT_EQ(WordsOfStop(true),
            "toutes les données sont gravées, mais rien ne dit que le disque est achevé : "
            "relisez-le avant de vous y fier.")
            << profile;
        EXPECT_EQ(WordsOfStop(false), Words()) << profile;
    }
    Write(0);
    EXPECT_EQ(WordsOfStop(false), "rien n'a été gravé.");
}

TEST_F(DiscAftermathTest, ADiscThatGotNoSectorIsAsItWas)
{
    for (const qint32 profile : {0x09, 0x0A, 0x1B, 0x41, 0x43}) {
        Insert(profile, DiscState::Blank);
        Write(0, 500);
        EXPECT_EQ(Words(), "rien n'a été gravé.") << profile;
    }
}

TEST_F(DiscAftermathTest, AWriteThatTheDriveRefusedIsNone)
{
    drive->Fail("Write", {drive::hresult::kWriteProtected});
    Write(0);

    EXPECT_EQ(Words(), "rien n'a été gravé.");
}

// As left by a drive that reserves a track before it calibrates its laser.
TEST_F(DiscAftermathTest, AWriteOnceDiscThatIsBlankNoMoreIsNotPraised)
{
    Insert(0x1B, DiscState::Blank);
    Write(0);
    Insert(0x1B, DiscState::Appendable);

    EXPECT_EQ(
        Words(), "rien n'a été gravé, mais le disque n'est plus vierge : prenez-en un autre.");
}

TEST_F(DiscAftermathTest, ADriveThatDoesNotAnswerAnyMoreSaysNothingOfTheDisc)
{
    Insert(0x1B, DiscState::Blank);
    Write(0);
    drive->Fail("Examine", {drive::hresult::kDeviceGone});

    EXPECT_EQ(Words(), "rien n'a été gravé.");
}

TEST_F(DiscAftermathTest, WithoutAWriteNothingWasWritten)
{
    EXPECT_EQ(Words(), "rien n'a été gravé.");
    EXPECT_EQ(drive->Calls(), "") << "nor has anybody to ask the drive";
}

TEST_F(DiscAftermathTest, AUsedDiscThatCanBeErasedIsSaidToBe)
{
    Insert(0x0A, DiscState::Appendable);
    Look();

    EXPECT_EQ(Advice(), " Un disque réinscriptible s'efface par « velmora-cli erase ».");
}

TEST_F(DiscAftermathTest, NobodyIsSentToEraseWhatCannotBeErased)
{
    EXPECT_EQ(Advice(), "") << "no disc was seen";
    Insert(0x1B, DiscState::Appendable);
    Look();
    EXPECT_EQ(Advice(), "") << "a write-once disc";
    Insert(0x0A, DiscState::Blank);
    Look();
    EXPECT_EQ(Advice(), "") << "a blank disc";
    drive->disc = {};
    Look();
    EXPECT_EQ(Advice(), "") << "an empty drive";
    for (const qint32 code : {drive::hresult::kRecorderLocked, drive::hresult::kDeviceGone}) {
        Insert(0x0A, DiscState::Appendable);
        Look();
        drive->Fail("Examine", {code});
        Look();
        EXPECT_EQ(Advice(), "") << "a drive that is busy or gone";
    }
}

} // namespace velmora::terminal
