// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/DriveBench.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <ostream>

namespace velmora::test {

namespace {

struct ErasedMedium {
    std::uint16_t profile;
    const char* name;
};

void PrintTo(const ErasedMedium& medium, std::ostream* out) { *out << medium.name; }

constexpr ErasedMedium kErasable[] {
    {0x0A, "CdRw"},
    {0x12, "DvdRam"},
    {0x13, "DvdMinusRwOverwrite"},
    {0x14, "DvdMinusRw"},
    {0x1A, "DvdPlusRw"},
    {0x43, "BdRe"},
};
constexpr ErasedMedium kNotErasable[] {
    {0x09, "CdR"},
    {0x11, "DvdMinusR"},
    {0x1B, "DvdPlusR"},
    {0x2B, "DvdPlusRDualLayer"},
    {0x41, "BdR"},
};

constexpr qint64 kErasedSectors = 1000;

std::string NameOfErased(const testing::TestParamInfo<ErasedMedium>& info)
{
    return info.param.name;
}

bool AllZero(const std::vector<std::uint8_t>& bytes)
{
    return std::ranges::all_of(bytes, [](std::uint8_t byte) { return byte == 0; });
}

} // namespace

class EraseTest : public DriveBench, public testing::WithParamInterface<ErasedMedium> {
protected:
    EraseTest()
    {
        if (GetParam().profile != 0) {
            Insert(GetParam().profile);
        }
    }
};
class NotErasableTest : public EraseTest { };
class EraseFaultTest : public DriveBench { };

INSTANTIATE_TEST_SUITE_P(, EraseTest, testing::ValuesIn(kErasable), NameOfErased);
INSTANTIATE_TEST_SUITE_P(, NotErasableTest, testing::ValuesIn(kNotErasable), NameOfErased);

TEST_P(EraseTest, AQuickEraseLeavesNothingThatAFileSystemBeginsWith)
{
    Write(OrderOf(kErasedSectors));

    drive->Erase(false, {});

    EXPECT_TRUE(AllZero(emulated.Sectors(0, 32)));
    EXPECT_TRUE(AllZero(emulated.Sectors(256, 32)));
    EXPECT_TRUE(drive->Examine().heuristicallyBlank);
}

TEST_P(EraseTest, AFullEraseLeavesNothing)
{
    Write(OrderOf(kErasedSectors));

    drive->Erase(true, {});

    EXPECT_TRUE(AllZero(emulated.Sectors(0, kErasedSectors)));
    EXPECT_TRUE(drive->Examine().heuristicallyBlank);
}

TEST_P(EraseTest, AnErasedDiscIsWrittenLikeANewOne)
{
    for (const bool full : {false, true}) {
        Insert(GetParam().profile);
        Write(OrderOf(kErasedSectors, 1));

        drive->Erase(full, {});
        Write(OrderOf(kErasedSectors, 2));

        EXPECT_EQ(emulated.Sectors(0, kErasedSectors), SectorsOf(kErasedSectors, 2));
    }
}

TEST_P(NotErasableTest, AWriteOnceDiscIsRefusedBeforeTheDriveIsAsked)
{
    Write(OrderOf(kErasedSectors));
    emulated.ForgetLog();

    EXPECT_EQ(ErrorOfErase(false), Number(drive::hresult::kNotErasable));
    EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kNotErasable));

    for (const std::string& line : emulated.Log()) {
        EXPECT_FALSE(line.starts_with("A1 ") || line.starts_with("04 ")) << line;
    }
}

TEST_F(EraseFaultTest, AQuicklyBlankedDvdMinusRwTakesOneClosedSession)
{
    Insert(0x14);
    Write(OrderOf(kErasedSectors, 1));
    drive->Erase(false, {});
    EXPECT_FALSE(drive->Examine().canStayOpen);

    Write(OrderOf(kErasedSectors, 2));

    EXPECT_TRUE(Disc().finalized);
    EXPECT_EQ(emulated.Sectors(0, kErasedSectors), SectorsOf(kErasedSectors, 2));
}

TEST_F(EraseFaultTest, AClosedRewritableDiscIsErased)
{
    Insert(0x0A);
    drive::WriteOrder order = OrderOf(kErasedSectors);
    order.closeDisc = true;
    Write(order);
    EXPECT_TRUE(drive->Examine().erasable);

    drive->Erase(false, {});

    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
}

// The library calls such a disc unsuitable.
TEST_F(EraseFaultTest, ADiscWhoseBurnWasBrokenOffIsErased)
{
    for (const std::uint16_t profile : std::initializer_list<std::uint16_t> {0x0A, 0x14}) {
        for (const bool full : {false, true}) {
            Insert(profile);
            Fault([](mmc::Faults& faults) { faults.writeFailsAt = 500; });
            ASSERT_NE(ErrorOfWrite(OrderOf(kErasedSectors)), 0);
            Fault([](mmc::Faults& faults) { faults = {}; });

            EXPECT_EQ(ErrorOfErase(full), 0) << profile;
            EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank) << profile;
        }
    }
}

TEST_F(EraseFaultTest, AnUnformattedBdReIsFormattedByAQuickErase)
{
    mmc::Disc disc = mmc::NewDisc(0x43);
    disc.formatted = false;
    disc.formattedSize = 0;
    emulated.Insert(disc);

    drive->Erase(false, {});
    Write(OrderOf(kErasedSectors));

    EXPECT_EQ(emulated.Sectors(0, kErasedSectors), SectorsOf(kErasedSectors, 1));
}

// It is blank already, and gets formatted by its first write.
TEST_F(EraseFaultTest, AnUnformattedDvdPlusRwIsLeftAsItIsByAQuickErase)
{
    Insert(0x1A);
    ASSERT_FALSE(Disc().formatted);
    emulated.ForgetLog();

    drive->Erase(false, {});

    for (const std::string& line : emulated.Log()) {
        EXPECT_FALSE(line.starts_with("04 ") || line.starts_with("2A ")) << line;
    }
    EXPECT_FALSE(Disc().formatted);
    Write(OrderOf(kErasedSectors));
    EXPECT_EQ(emulated.Sectors(0, kErasedSectors), SectorsOf(kErasedSectors, 1));
}

TEST_F(EraseFaultTest, AnUnformattedDvdPlusRwIsFormattedByAFullErase)
{
    Insert(0x1A);

    drive->Erase(true, {});

    EXPECT_TRUE(Disc().formatted);
}

TEST_F(EraseFaultTest, AnEmptyDriveHasNothingToErase)
{
    EXPECT_EQ(ErrorOfErase(false), Number(drive::hresult::kNoMedia));
}

TEST_F(EraseFaultTest, ADriveThatFailsToBlankSaysSo)
{
    Insert(0x0A);
    Fault([](mmc::Faults& faults) { faults.eraseFails = true; });

    EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kEraseRefused));
    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank) << "the drive is usable again";
}

TEST_F(EraseFaultTest, ADriveThatIsUnpluggedWhileItErasesIsTold)
{
    Insert(0x0A);
    Fault([](mmc::Faults& faults) {
        faults.erasePolls = 10;
        faults.unplugsAfterErasePolls = 3;
    });

    EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kDeviceGone));
    EXPECT_EQ(ErrorNumberOf([this] { drive->Examine(); }), Number(drive::hresult::kDeviceGone));
}

TEST_F(EraseFaultTest, TheExpectedTimeIsNeverBelowTheElapsedOne)
{
    Insert(0x0A);
    Fault([](mmc::Faults& faults) { faults.erasePolls = 60; });
    std::vector<std::pair<int, int>> told;

    drive->Erase(true, [&told](qint32 elapsed, qint32 expected) {
        told.emplace_back(elapsed, expected);
        return true;
    });

    ASSERT_GE(told.size(), 3U) << "at once, after half a second, at the end";
    for (const auto& [elapsed, expected] : told) {
        EXPECT_LE(elapsed, expected);
    }
    EXPECT_EQ(told.front().first, 0);
    EXPECT_EQ(told.back().first, told.back().second);
}

TEST_F(EraseFaultTest, EventsAreHandledWhileItErases)
{
    Insert(0x14);
    Fault([](mmc::Faults& faults) { faults.erasePolls = 20; });
    pump.Begin();

    drive->Erase(true, {});

    EXPECT_GT(pump.pumps, 10);
    EXPECT_LT(pump.longestGap, kLongestGap);
}

} // namespace velmora::test
