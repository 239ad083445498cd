// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/image/ImageReport.h"

#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

namespace {

using image::ErrorKind;
using image::FileSystem;
using image::OmittedEntry;

OmittedEntry Lacks(FileSystem fileSystem, const std::string& path)
{
    return {.fileSystem = fileSystem, .error = {.kind = ErrorKind::TooDeep, .path = path}};
}

} // namespace

TEST(ImageReportTest, WhatTheScanPassedOverAndWhatNoFileSystemHoldsIsMissing)
{
    const auto tree = std::make_shared<image::SourceTree>();
    std::string path = "A";
    ASSERT_TRUE(tree->AddDirectory(path, {}));
    for (int level = 3; level <= 10; ++level) {
        ASSERT_TRUE(tree->AddDirectory(path += "/A", {}));
    }
    image::ImageOptions options;
    options.fileSystems = {.iso9660 = true, .joliet = false, .udf = false};
    options.isoLevel = image::IsoLevel::Level1;
    const std::vector<image::Error> passedOver {{ErrorKind::SpecialFile, "/src/tube"}};

    const Losses lost = LossesOf(passedOver, *image::ImagePlan::Create(tree, options));
    ASSERT_EQ(lost.missing.size(), 3U);
    EXPECT_EQ(lost.missing[0].path, "/src/tube");
    EXPECT_EQ(lost.missing[1].path, "A/A/A/A/A/A/A/A");
    EXPECT_EQ(lost.missing[2].path, "A/A/A/A/A/A/A/A/A");
    EXPECT_TRUE(lost.partlyMissing.empty());

    options.fileSystems.joliet = true;
    const Losses partly = LossesOf({}, *image::ImagePlan::Create(tree, options));
    EXPECT_TRUE(partly.missing.empty());
    EXPECT_EQ(partly.partlyMissing.size(), 2U);
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
    ShowLosses(screen, Detail::Counts, {.missing = {{ErrorKind::SpecialFile, "/src/tube"}}});
    EXPECT_EQ(screen.Text(),
        "= Noms modifiés : 0\n"
        "= Éléments absents de l'image : 1\n"
        "= La liste s'obtient avec l'option --report.\n");
}

TEST(ImageReportTest, ListsNameEverythingHarmlessly)
{
    TranscriptScreen screen;
    ShowLosses(screen,
        Detail::Lists,
        {.changedNames = {{FileSystem::Joliet, "a?\xFF", "a__"}},
            .nameHazards = {{image::HazardKind::DotsOnly, "..."}},
            .linksLeadingOut = {{"up", "../x"}, {"root", "/etc/\x1b"}},
            .missing = {{ErrorKind::SpecialFile, "/src/tu\x1b[2Jbe"}},
            .partlyMissing = {Lacks(FileSystem::Iso9660, "a/b")}});
    EXPECT_EQ(screen.Text(),
        "= Noms modifiés : 1\n"
        "=   Joliet : a?\uFFFD -> a__\n"
        "= Noms que certains lecteurs perdent : 1\n"
        "=   « ... » : Ce nom n'est fait que de points : Windows ne l'ouvre pas.\n"
        "= Liens qui mènent hors de l'image : 2\n"
        "=   up -> ../x\n"
        "=   root -> /etc/␛ (chemin absolu)\n"
        "= Éléments absents de l'image : 1\n"
        "=   « /src/tu␛[2Jbe » : Ce n'est ni un fichier ni un répertoire (tube, socket ou "
        "périphérique).\n"
        "= Éléments absents d'un système de fichiers : 1\n"
        "=   ISO 9660 : « a/b » : Plus de 8 niveaux de répertoires. Choisissez le niveau 2 ou "
        "3.\n");
}

} // namespace velmora::terminal
