// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/FileProofs.h"

#include "tests/support/AccessTimes.h"
#include "tests/terminal/ScratchFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace velmora::terminal {
namespace {

constexpr std::string_view kSumOfX
    = "2d711642b726b04401627ca9fbac32f5c8530fb1903cc4db02258717921a4881";

bool IsGood(FileProofs& proofs, const std::string& path, std::string_view content)
{
    const auto proof = proofs.Of(path);
    if (!proof) return false;
    for (const char sign : content) { // however they come
        proof->Add(std::as_bytes(std::span(&sign, 1)));
    }
    return proof->IsGood();
}

std::string Line(std::string_view name, std::string_view between = "  ")
{
    return std::string(kSumOfX) + std::string(between) + std::string(name) + "\n";
}

TEST(FileProofsTest, ASumTellsGoodBytesFromOthers)
{
    SumProofs proofs(Line("a/b"));
    EXPECT_TRUE(IsGood(proofs, "a/b", "x"));
    EXPECT_FALSE(IsGood(proofs, "a/b", "y"));
    EXPECT_FALSE(IsGood(proofs, "a/b", "xx"));
    EXPECT_FALSE(proofs.Of("b"));
}

TEST(FileProofsTest, AllFormsOfLinesAreRead)
{
    SumProofs proofs(Line("binary", " *") + Line("./dotted") + "\\" + Line("back\\\\slash") + "\\"
        + Line("line\\nfeed") + "\\" + Line("return\\r") + Line("last").substr(0, 70));
    for (const std::string name :
        {"binary", "dotted", "back\\slash", "line\nfeed", "return\r", "last"}) {
        EXPECT_TRUE(IsGood(proofs, name, "x")) << name;
    }
    EXPECT_TRUE(proofs.Missing().empty());
}

TEST(FileProofsTest, LinesThatAreNoneArePassedOver)
{
    const SumProofs proofs("# a comment\n\n" + Line("").substr(0, 65) + "\n" + std::string(64, 'g')
        + "  name\n" + std::string(10, '0') + "  short\n");
    EXPECT_TRUE(proofs.IsEmpty());
    EXPECT_TRUE(proofs.Missing().empty());
}

TEST(FileProofsTest, WhatIsListedAndNeverAskedForIsMissing)
{
    SumProofs proofs(Line("here") + Line("gone"));
    proofs.Of("here");
    EXPECT_EQ(proofs.Missing(), (std::set<std::string> {"gone"}));
}

TEST(FileProofsTest, AFolderProvesItsOwnFiles)
{
    ScratchFolder folder;
    folder.File("tree/a", "x");
    folder.File("tree/sub/b", "yy");
    folder.File("tree/.hidden", "z");
    std::filesystem::create_symlink("a", folder.Path("tree/link"));
    FolderProofs proofs(text::NativePath(folder.Path("tree")));
    EXPECT_EQ(proofs.Missing(), (std::set<std::string> {"a", "sub/b"}));
    EXPECT_TRUE(IsGood(proofs, "a", "x"));
    EXPECT_FALSE(IsGood(proofs, "sub/b", "y"));
    EXPECT_FALSE(IsGood(proofs, "sub/b", "yyy"));
    EXPECT_TRUE(IsGood(proofs, "sub/b", "yy"));
    EXPECT_FALSE(proofs.Of("else"));
    EXPECT_TRUE(proofs.Missing().empty());
}

TEST(FileProofsTest, AFolderThatProvesIsReadUnnoticed)
{
    ScratchFolder folder;
    folder.File("tree/sub/b", "yy");
    for (const char* name : {"tree/sub/b", "tree/sub", "tree"}) {
        test::MakeAccessFormer(folder.Path(name));
    }
    FolderProofs proofs(text::NativePath(folder.Path("tree")));
    EXPECT_TRUE(IsGood(proofs, "sub/b", "yy"));
    for (const char* name : {"tree/sub/b", "tree/sub", "tree"}) {
        EXPECT_TRUE(test::IsAccessFormer(folder.Path(name))) << name;
    }
}

} // namespace
} // namespace velmora::terminal
