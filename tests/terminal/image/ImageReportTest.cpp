// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/image/ImageReport.h"

#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

namespace {

using image::ErrorKind;
using image::FileSystem;
using image::LeftOutEntry;

LeftOutEntry Lacks(FileSystem fileSystem, const std::string& path)
{
    return {.fileSystem = fileSystem, .error = {.kind = ErrorKind::TooDeep, .path = path}};
}

std::vector<std::string> Paths(const std::vector<image::Error>& errors)
{
    std::vector<std::string> paths;
    for (const auto& error : errors)
        paths.push_back(error.path);
    return paths;
}

} // namespace

TEST(ImageReportTest, WhatOneFileSystemLacksIsStillInTheImage)
{
    const auto omissions = SortOmissions({}, {Lacks(FileSystem::Iso9660, "a")}, {});
    EXPECT_TRUE(omissions.everywhere.empty());
    EXPECT_EQ(omissions.somewhere.size(), 1U);
}

TEST(ImageReportTest, WhatEveryFileSystemLacksIsNowhereAndToldOnce)
{
    const std::vector<LeftOutEntry> leftOut {
        Lacks(FileSystem::Iso9660, "a"), Lacks(FileSystem::Joliet, "a")};
    const auto omissions
        = SortOmissions({}, leftOut, {.iso9660 = true, .joliet = true, .udf = false});
    EXPECT_EQ(Paths(omissions.everywhere), std::vector<std::string> {"a"});
    EXPECT_TRUE(omissions.somewhere.empty());
}

TEST(ImageReportTest, AFileIsGoneWithTheFolderAboveIt)
{
    const std::vector<LeftOutEntry> leftOut {
        Lacks(FileSystem::Iso9660, "a/b/c"), Lacks(FileSystem::Joliet, "a")};
    const auto omissions
        = SortOmissions({}, leftOut, {.iso9660 = true, .joliet = true, .udf = false});
    EXPECT_EQ(Paths(omissions.everywhere), std::vector<std::string> {"a/b/c"});
    EXPECT_EQ(omissions.somewhere.size(), 1U); // ISO 9660 may hold other files of the folder
}

TEST(ImageReportTest, WhatTheScanPassedOverIsNowhere)
{
    const auto omissions
        = SortOmissions({{.kind = ErrorKind::DanglingLink, .path = "/src/link"}}, {}, {});
    EXPECT_EQ(Paths(omissions.everywhere), std::vector<std::string> {"/src/link"});
}

TEST(ImageReportTest, NoLossesAreToldAsZero)
{
    TranscriptScreen screen;
    ShowLosses(screen, Detail::Counts, {});
    EXPECT_EQ(screen.Text(), "= Noms modifiés : 0\n= Éléments absents de l'image : 0\n");
}

TEST(ImageReportTest, CountsSayHowToSeeTheList)
{
    TranscriptScreen screen;
    const Omissions omissions {
        .everywhere = {{.kind = ErrorKind::SpecialFile, .path = "/src/tube"}}};
    ShowLosses(screen, Detail::Counts, {.omissions = omissions});
    EXPECT_EQ(screen.Text(),
        "= Noms modifiés : 0\n"
        "= Éléments absents de l'image : 1\n"
        "= La liste s'obtient avec l'option --report.\n");
}

TEST(ImageReportTest, ListsNameEverythingHarmlessly)
{
    TranscriptScreen screen;
    const Omissions omissions {
        .everywhere = {{.kind = ErrorKind::SpecialFile, .path = "/src/tu\x1b[2Jbe"}},
        .somewhere = {Lacks(FileSystem::Iso9660, "a/b")}};
    ShowLosses(screen,
        Detail::Lists,
        {.changedNames = {{FileSystem::Joliet, "a?\xFF", "a__"}}, .omissions = omissions});
    EXPECT_EQ(screen.Text(),
        "= Noms modifiés : 1\n"
        "=   Joliet : a?\uFFFD -> a__\n"
        "= Éléments absents de l'image : 1\n"
        "=   « /src/tu␛[2Jbe » : Ce n'est ni un fichier ni un répertoire (tube, socket ou "
        "périphérique).\n"
        "= Éléments absents d'un système de fichiers : 1\n"
        "=   ISO 9660 : « a/b » : Plus de 8 niveaux de répertoires. Choisissez le niveau 2 ou "
        "3.\n");
}

} // namespace velmora::terminal
