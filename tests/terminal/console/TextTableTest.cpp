// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/TextTable.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

using Lines = std::vector<std::string>;

TEST(TextTableTest, ColumnsAreAsWideAsTheirWidestCell)
{
    EXPECT_EQ(TableLines({{"a", "bcd", "e"}, {"fghi", "j", "klm"}}),
        (Lines {"a     bcd  e", "fghi  j    klm"}));
}

TEST(TextTableTest, LettersOfSeveralBytesTakeOneColumn)
{
    EXPECT_EQ(TableLines({{"été", "x"}, {"abcd", "y"}}), (Lines {"été   x", "abcd  y"}));
}

TEST(TextTableTest, TheLastCellOfARowWidensNothing)
{
    EXPECT_EQ(TableLines({{"very long"}, {"a", "b"}}), (Lines {"very long", "a  b"}));
}

TEST(TextTableTest, NoRowsAreNoLines) { EXPECT_EQ(TableLines({}), Lines {}); }

} // namespace velmora::terminal
