// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/FileUri.h"

#include "tests/support/PathLiterals.h"

#include <gtest/gtest.h>

using namespace velmora::text;
using namespace std::string_literals;

TEST(FileUriTest, ALocalAddressIsThePathBehindIt)
{
    EXPECT_EQ(NativePathOfUri("file:///home/u/a.txt"), NativePath("/home/u/a.txt"));
    EXPECT_EQ(NativePathOfUri("file://localhost/home/u"), NativePath("/home/u"));
    EXPECT_EQ(NativePathOfUri("file:/home/u"), NativePath("/home/u"));
    EXPECT_EQ(NativePathOfUri("FILE:///home/u/"), NativePath("/home/u/"));
    EXPECT_EQ(NativePathOfUri("file:///"), NativePath("/"));
}

TEST(FileUriTest, EscapedBytesComeBackWhateverTheyEncode)
{
    EXPECT_EQ(NativePathOfUri("file:///caf%C3%A9%20noir"), NativePath("/caf\xC3\xA9 noir"));
    EXPECT_EQ(NativePathOfUri("file:///caf%e9"), NativePath("/caf\xE9"));
    EXPECT_EQ(NativePathOfUri("file:///100%25"), NativePath("/100%"));
    EXPECT_EQ(NativePathOfUri("file:///a%2fb%23"), NativePath("/a/b#"));
}

TEST(FileUriTest, WhatIsNoEscapeStaysAsItIs)
{
    EXPECT_EQ(NativePathOfUri("file:///a%"), NativePath("/a%"));
    EXPECT_EQ(NativePathOfUri("file:///a%4"), NativePath("/a%4"));
    EXPECT_EQ(NativePathOfUri("file:///a%zz%4"), NativePath("/a%zz%4"));
    EXPECT_EQ(NativePathOfUri("file:///a%+1"), NativePath("/a%+1"));
    EXPECT_EQ(NativePathOfUri("file:///a#b?c"), NativePath("/a#b?c"));
}

TEST(FileUriTest, OtherAddressesNameNothingHere)
{
    for (const char* uri : {"",
             "file",
             "file:",
             "file://",
             "file:a.txt",
             "file://elsewhere/a",
             "file://localhosting/a",
             "http://example.org/a",
             "sftp://u@h/a",
             "/home/u",
             "file:///a%00b"}) {
        EXPECT_EQ(NativePathOfUri(uri), std::nullopt) << uri;
    }
    EXPECT_EQ(NativePathOfUri("file:///a\0b"s), std::nullopt);
}

TEST(FileUriTest, AListHasOneAddressALineAndComments)
{
    using Addresses = std::vector<std::string_view>;
    EXPECT_EQ(AddressesOf("#from here\r\nfile:///a\r\nhttp://b\r\n"),
        (Addresses {"file:///a", "http://b"}));
    EXPECT_EQ(AddressesOf("file:///a\nfile:///b"), (Addresses {"file:///a", "file:///b"}));
    EXPECT_EQ(AddressesOf("\r\n\r\n"), Addresses());
    EXPECT_EQ(AddressesOf(""), Addresses());
}
