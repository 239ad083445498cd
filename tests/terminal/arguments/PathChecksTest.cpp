// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/PathChecks.h"

#include "tests/terminal/ScratchFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora::terminal {

namespace {

class PathChecksTest : public testing::Test {
protected:
    /// The message about a path, with "D" for the scratch folder.
    std::string Told(std::string text) const
    {
        for (auto at = text.find(scratch_.Path()); at != std::string::npos;
             at = text.find(scratch_.Path()))
            text.replace(at, scratch_.Path().size(), "D");
        return text;
    }
    std::string OfOutput(const std::string& path) const
    {
        return Told(ProblemOfOutput(text::NativePath(path), Replacing::Images));
    }
    std::string OfFolder(const std::string& path) const
    {
        return Told(ProblemOfFolder(text::NativePath(path)));
    }

    ScratchFolder scratch_;
};

} // namespace

TEST_F(PathChecksTest, AFolderIsGood) { EXPECT_EQ(OfFolder(scratch_.Path()), ""); }

TEST_F(PathChecksTest, AMissingFolderAndAFileAreNamed)
{
    EXPECT_EQ(OfFolder(scratch_.Path("rien")),
        "Le dossier « D/rien » n'existe pas : vérifiez son chemin.");
    EXPECT_EQ(OfFolder(scratch_.File("a.txt")),
        "« D/a.txt » n'est pas un dossier : donnez le dossier dont le contenu doit aller sur le "
        "disque.");
    EXPECT_EQ(OfFolder(scratch_.Path("a.txt/b")),
        "« D/a.txt/b » : Lecture du répertoire impossible. (ce n'est pas un répertoire)");
}

TEST_F(PathChecksTest, ANewFileAndAnOldOneAreGood)
{
    EXPECT_EQ(OfOutput(scratch_.Path("new.iso")), "");
    EXPECT_EQ(OfOutput(scratch_.File("old.iso", std::string(32769, '\0') + "CD001")), "");
    EXPECT_EQ(OfOutput(scratch_.File("udf.iso", std::string(32769, '\0') + "BEA01")), "");
    EXPECT_EQ(OfOutput(scratch_.File("empty.iso", "")), "");
    EXPECT_EQ(OfOutput("in-the-current-folder.iso"), "");
}

TEST_F(PathChecksTest, AFolderCantBeReplacedByAnImage)
{
    EXPECT_EQ(OfOutput(scratch_.Path()),
        "« D » est un dossier : donnez le nom du fichier image, par exemple « D/image.iso ».");
}

TEST_F(PathChecksTest, TheDirectoryOfTheImageMustBeThere)
{
    EXPECT_EQ(OfOutput(scratch_.Path("rien/a.iso")),
        "Le dossier « D/rien », où l'image doit aller, n'existe pas : créez-le ou choisissez-en un "
        "autre.");
    EXPECT_EQ(OfOutput(scratch_.Path("rien/")),
        "Le dossier « D/rien/ » n'existe pas : créez-le et ajoutez le nom du fichier image.");
    scratch_.File("a.txt");
    EXPECT_EQ(OfOutput(scratch_.Path("a.txt/b.iso")),
        "« D/a.txt », où l'image doit aller, n'est pas un dossier : choisissez-en un autre.");
}

TEST_F(PathChecksTest, ADeviceOrAPipeIsNotReplaced)
{
    ASSERT_EQ(mkfifo(scratch_.Path("tube").c_str(), 0600), 0);
    EXPECT_EQ(OfOutput(scratch_.Path("tube")),
        "« D/tube » n'est pas un fichier ordinaire et ne peut pas être remplacé : choisissez un "
        "autre nom.");
    EXPECT_NE(OfOutput("/dev/null"), "");
}

TEST_F(PathChecksTest, ALinkIsFollowedToTheFileThatItNames)
{
    std::filesystem::create_symlink(scratch_.File("old.iso", ""), scratch_.Path("link.iso"));
    EXPECT_EQ(OfOutput(scratch_.Path("link.iso")), "");
    EXPECT_EQ(ResolvedOutput(text::NativePath(scratch_.Path("link.iso"))),
        text::NativePath(scratch_.Path("old.iso")));
    EXPECT_EQ(ResolvedOutput(text::NativePath(scratch_.Path("old.iso"))),
        text::NativePath(scratch_.Path("old.iso")));
}

TEST_F(PathChecksTest, ALinkToNothingIsRefused)
{
    std::filesystem::create_symlink("rien", scratch_.Path("link.iso"));
    EXPECT_EQ(OfOutput(scratch_.Path("link.iso")),
        "« D/link.iso » est un lien qui ne mène à rien : supprimez-le ou choisissez un autre nom.");
}

TEST_F(PathChecksTest, AnUnwritableDirectoryIsRefused)
{
    if (geteuid() == 0) GTEST_SKIP() << "the superuser may write everywhere";
    const std::string directory = scratch_.Folder("locked");
    ASSERT_EQ(chmod(directory.c_str(), 0500), 0);
    EXPECT_EQ(OfOutput(directory + "/a.iso"),
        "« D/locked » : Création du fichier image impossible. (droits insuffisants) Vérifiez "
        "le répertoire et vos droits d'écriture.");
}

} // namespace velmora::terminal
