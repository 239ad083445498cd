// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shortcut/DesktopLink.h"

#include <gtest/gtest.h>

using velmora::shortcut::AddressOfDesktopLink;

TEST(DesktopLinkTest, ALinkLeadsToItsAddress)
{
    EXPECT_EQ(
        AddressOfDesktopLink("[Desktop Entry]\nType=Link\nName=a\nURL=file:///home/u/a.txt\n"),
        "file:///home/u/a.txt");
    EXPECT_EQ(AddressOfDesktopLink("# made here\r\n\r\n[Desktop Entry]\r\nURL = file:///a b \r\n"
                                   "Type = Link\r\n[Desktop Action x]\r\nURL=file:///other"),
        "file:///a b");
}

TEST(DesktopLinkTest, EscapesArePutBack)
{
    EXPECT_EQ(AddressOfDesktopLink("[Desktop Entry]\nType=Link\nURL=/a\\sb\\\\c\\xd\\t\\n\\r\\"),
        "/a b\\c\\xd\t\n\r\\");
}

TEST(DesktopLinkTest, AnotherEntryIsNoLink)
{
    for (const char* entry : {"",
             "URL=file:///a\nType=Link",
             "[Desktop Entry]\nType=Application\nURL=file:///a",
             "[Desktop Entry]\nURL=file:///a",
             "[Desktop Entry]\nType=Link\nName=a",
             "[Desktop Entry]\nType=Link\nURL[fr]=file:///a",
             "[Other]\nx=y\n[Desktop Entry]\nType=Link\nURL=file:///a",
             "[Desktop Entry]\nType=Link\n[More]\nURL=file:///a",
             "[Desktop Entry]\nType=Link\n#URL=file:///a"}) {
        EXPECT_EQ(AddressOfDesktopLink(entry), std::nullopt) << entry;
    }
}
