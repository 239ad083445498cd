// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/MountTable.h"

#include <gtest/gtest.h>

namespace velmora::drive::test {

namespace {

TEST(MountTableTest, WhatWouldBreakALineIsReadFromItsDigits)
{
    EXPECT_EQ(PathInMountTable(R"(/media/anne/Mes\040photos)"), "/media/anne/Mes photos");
    EXPECT_EQ(PathInMountTable(R"(/a\011b\012c)"), "/a\tb\nc");
    EXPECT_EQ(PathInMountTable(R"(/\303\211t\303\251)"), "/\u00C9t\u00E9");
    EXPECT_EQ(PathInMountTable("/media/anne/DISQUE"), "/media/anne/DISQUE");
    EXPECT_EQ(PathInMountTable(""), "");
}

TEST(MountTableTest, AnEscapedBackslashBeginsNoOtherEscape)
{
    EXPECT_EQ(PathInMountTable(R"(/a\134040)"), R"(/a\040)");
}

TEST(MountTableTest, ABackslashBeforeAnythingElseIsItself)
{
    for (const char* field :
        {R"(/a\)", R"(/a\04)", R"(/a\0b4)", R"(/a\048)", R"(/a\400)", R"(/a\+40)"}) {
        EXPECT_EQ(PathInMountTable(field), field);
    }
}

} // namespace

} // namespace velmora::drive::test
