// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/base/ByteOrder.h"

#include "image/base/Calendar.h"
#include "image/base/Window.h"
#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

using namespace image;

TEST(ByteOrderTest, LittleNumbersHaveTheirLowByteFirst)
{
    // The example numbers of ECMA-119 7.2.1 and 7.3.1.
    EXPECT_EQ(Hex(BytesOf(Little16(0x1234))), "34 12");
    EXPECT_EQ(Hex(BytesOf(Little32(0x12345678))), "78 56 34 12");
    EXPECT_EQ(Hex(BytesOf(Little64(0x0123456789ABCDEF))), "EF CD AB 89 67 45 23 01");
}

TEST(ByteOrderTest, BigNumbersHaveTheirHighByteFirst)
{
    EXPECT_EQ(Hex(BytesOf(Big16(0x1234))), "12 34");           // ECMA-119 7.2.2
    EXPECT_EQ(Hex(BytesOf(Big32(0x12345678))), "12 34 56 78"); // ECMA-119 7.3.2
}

TEST(ByteOrderTest, NumbersOfBothOrdersStandTwice)
{
    EXPECT_EQ(Hex(BytesOf(Both16(0x1234))), "34 12 12 34");                 // 7.2.3
    EXPECT_EQ(Hex(BytesOf(Both32(0x12345678))), "78 56 34 12 12 34 56 78"); // 7.3.3
    EXPECT_EQ(Hex(BytesOf(Both32(0xFFFFF800))), "00 F8 FF FF FF FF F8 00"); // all bits
    EXPECT_EQ(Hex(BytesOf(Both32(0))), "00 00 00 00 00 00 00 00");
}

TEST(ByteOrderTest, LittleNumbersReadBack)
{
    EXPECT_EQ(Little16(0xFEDC).Value(), 0xFEDC);
    EXPECT_EQ(Little32(0x80000001).Value(), 0x80000001);
    EXPECT_EQ(Little64(0x8000000000000001).Value(), 0x8000000000000001);
}

TEST(ByteOrderTest, TextFieldsAreFilledUpAndCut)
{
    EXPECT_EQ(BytesOf(Filled<5>("AB")), "AB   ");
    EXPECT_EQ(Hex(BytesOf(Filled<4>("AB", '\0'))), "41 42 00 00");
    EXPECT_EQ(BytesOf(Filled<2>("ABC")), "AB");
}

TEST(CalendarTest, KnowsLeapYearsAndTheCenturiesWithoutOne)
{
    struct Row {
        std::int64_t seconds;
        int year;
        int month;
        int day;
    };
    for (const Row& row : {Row {0, 1970, 1, 1},
             Row {951782400, 2000, 2, 29},     // a century that is a leap year
             Row {951868800, 2000, 3, 1},      //
             Row {4107456000, 2100, 2, 28},    // a century that is none
             Row {4107542400, 2100, 3, 1},     //
             Row {-2203891200, 1900, 3, 1},    //
             Row {-1, 1969, 12, 31},           //
             Row {253402300799, 9999, 12, 31}, //
             Row {-62135596800, 1, 1, 1}}) {
        const Calendar calendar = ToCalendar(row.seconds);
        EXPECT_EQ(calendar.year, row.year) << row.seconds;
        EXPECT_EQ(calendar.month, row.month) << row.seconds;
        EXPECT_EQ(calendar.day, row.day) << row.seconds;
    }
}

TEST(CalendarTest, CountsTheSecondsOfADay)
{
    const Calendar last = ToCalendar(-1);

    EXPECT_EQ(last.hour, 23);
    EXPECT_EQ(last.minute, 59);
    EXPECT_EQ(last.second, 59);
    EXPECT_EQ(ToCalendar(86400 + 3661).hour, 1);
    EXPECT_EQ(ToCalendar(86400 + 3661).minute, 1);
    EXPECT_EQ(ToCalendar(86400 + 3661).second, 1);
}

class WindowTest : public testing::Test {
protected:
    std::string bytes = "........";
    Window window {100, std::as_writable_bytes(std::span(bytes))};
};

TEST_F(WindowTest, TakesWhatLiesInIt)
{
    window.Put(102, "abc");
    EXPECT_EQ(bytes, "..abc...");
}

TEST_F(WindowTest, CutsWhatBeginsBeforeIt)
{
    window.Put(98, "abcd");
    EXPECT_EQ(bytes, "cd......");
}

TEST_F(WindowTest, CutsWhatEndsBehindIt)
{
    window.Put(106, "abcd");
    EXPECT_EQ(bytes, "......ab");
}

TEST_F(WindowTest, IsFilledByWhatIsLonger)
{
    window.Put(97, "0123456789abcdef");
    EXPECT_EQ(bytes, "3456789a");
}

TEST_F(WindowTest, IgnoresWhatLiesBesideIt)
{
    window.Put(96, "abcd");
    window.Put(108, "abcd");
    window.PutZeros(0, 100);
    window.PutZeros(108, 200);
    EXPECT_EQ(bytes, "........");
}

TEST_F(WindowTest, ZeroesOnlyItsOwnPart)
{
    window.PutZeros(106, 500);
    EXPECT_EQ(bytes, std::string_view("......\0\0", 8));
}

TEST_F(WindowTest, TouchesRangesThatShareAByte)
{
    EXPECT_TRUE(window.Touches(0, 101));
    EXPECT_FALSE(window.Touches(0, 100));
    EXPECT_TRUE(window.Touches(107, 108));
    EXPECT_FALSE(window.Touches(108, 109));
}

TEST(SectorsForTest, CountsBegunSectors)
{
    EXPECT_EQ(SectorsFor(0), 0U);
    EXPECT_EQ(SectorsFor(1), 1U);
    EXPECT_EQ(SectorsFor(2047), 1U);
    EXPECT_EQ(SectorsFor(2048), 1U);
    EXPECT_EQ(SectorsFor(2049), 2U);
    EXPECT_EQ(SectorsFor(0x100000000), 2097152U);
}

} // namespace velmora::test
