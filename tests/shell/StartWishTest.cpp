// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/StartWish.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora::shell {

using namespace Qt::StringLiterals;

namespace {

StartWish Read(const std::vector<const char*>& arguments) { return ReadStartWish(arguments); }

} // namespace

TEST(StartWishTest, AnOptionAloneIsAWish)
{
    EXPECT_EQ(Read({"--erase"}).kind, StartKind::Erase);
    EXPECT_EQ(Read({"--help"}).kind, StartKind::Help);
    EXPECT_EQ(Read({"-h"}).kind, StartKind::Help);
    EXPECT_EQ(Read({"--version"}).kind, StartKind::Version);
    const StartWish image = Read({"--burn-iso", "/srv/photos.iso"});
    EXPECT_EQ(image.kind, StartKind::BurnImage);
    EXPECT_EQ(image.image.Text(), u"\\srv\\photos.iso"_s);
    EXPECT_EQ(Read({"--burn-iso"}).kind, StartKind::BurnImage);
    EXPECT_TRUE(Read({"--burn-iso"}).image.IsEmpty());
}

TEST(StartWishTest, AnImageIsKnownByItsWholePath)
{
    EXPECT_TRUE(Read({"--burn-iso", "photos.iso"}).image.Text().startsWith(u'\\'));
}

TEST(StartWishTest, AllElseIsACommandString)
{
    EXPECT_EQ(Read({}).kind, StartKind::Folder);
    EXPECT_EQ(Read({"/home/lea/Photos"}).kind, StartKind::Folder);
    EXPECT_EQ(Read({"--erase", "-n", "Noces"}).kind, StartKind::Folder);
}

} // namespace velmora::shell
