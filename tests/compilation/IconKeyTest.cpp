// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/compilation/CompilationFixture.h"

using namespace velmora;
using namespace Qt::StringLiterals;
using namespace test::path_literals;
using compilation::GetFileIconKey;

TEST(IconKeyTest, TheKeyIsTheIconsNumberBehindAnF)
{
    test::FakeIcons icons;
    icons.numbers[u"txt"_s] = 12;
    EXPECT_EQ(GetFileIconKey(icons, u"C:\\a.txt"_path), u"F12"_s);
    EXPECT_TRUE(icons.lookedInside);
    EXPECT_EQ(icons.pictures[u"F12"_s], u"C:\\a.txt"_path);
}

TEST(IconKeyTest, TwoFilesOfOneTypeShareOnePicture)
{
    test::FakeIcons icons;
    icons.numbers[u"txt"_s] = 12;
    EXPECT_EQ(GetFileIconKey(icons, u"a.txt"_path), u"F12"_s);
    EXPECT_EQ(GetFileIconKey(icons, u"b.txt"_path), u"F12"_s);
    EXPECT_EQ(icons.pictures.size(), 1);
    EXPECT_EQ(icons.pictures[u"F12"_s], u"a.txt"_path);
}

TEST(IconKeyTest, WithoutAnIconTheKeyIsF0)
{
    test::FakeIcons icons;
    EXPECT_EQ(GetFileIconKey(icons, u"a.unknown"_path), u"F0"_s);
}
