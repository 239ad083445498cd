// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/terminal/image/ImageJobBench.h"

namespace velmora::terminal {

/// What the command says about symbolic links.
class ImageLinksTest : public ImageJobTest { };

TEST_F(ImageLinksTest, LinksAreKeptWhereverTheyLead)
{
    scratch_.File("photos/a.txt");
    std::filesystem::create_symlink("nowhere", scratch_.Path("photos/dead"));
    std::filesystem::create_symlink(".", scratch_.Path("photos/round"));
    std::filesystem::create_symlink("a.txt", scratch_.Path("photos/good"));
    EXPECT_EQ(Run(Request()), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("Lecture du dossier : 1 fichier, 0 dossier, 3 liens, "));
    EXPECT_TRUE(screen_.Shows("Contenu : 2 fichiers, 0 dossier, 3 liens")) << Transcript();
    EXPECT_TRUE(screen_.Shows("Éléments absents de l'image : 0"));
    EXPECT_TRUE(screen_.Shows("Éléments absents d'un système de fichiers : 2")); // Joliet
    EXPECT_FALSE(screen_.Shows("hors de l'image"));
}

TEST_F(ImageLinksTest, LinksThatLeadOutOfTheImageAreCountedAndNamed)
{
    scratch_.File("photos/a.txt");
    std::filesystem::create_symlink("/etc/hosts", scratch_.Path("photos/abs"));
    std::filesystem::create_symlink("../x", scratch_.Path("photos/up"));
    EXPECT_EQ(Run(Request()), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("= Liens qui mènent hors de l'image : 2")) << Transcript();
    EXPECT_FALSE(screen_.Shows("abs -> "));
    ImageRequest request = Request();
    request.detail = Detail::Lists;
    EXPECT_EQ(Run(request), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("=   abs -> /etc/hosts (chemin absolu)")) << Transcript();
    EXPECT_TRUE(screen_.Shows("=   up -> ../x"));
}

TEST_F(ImageLinksTest, LinksAreFollowedWhereThatIsAskedFor)
{
    scratch_.File("photos/z/a.txt");
    scratch_.File("elsewhere/b.txt");
    std::filesystem::create_symlink("z/a.txt", scratch_.Path("photos/file"));
    std::filesystem::create_symlink("../elsewhere", scratch_.Path("photos/folder"));
    std::filesystem::create_symlink("z", scratch_.Path("photos/again"));
    std::filesystem::create_symlink("/", scratch_.Path("photos/root"));
    ImageRequest request = Request();
    request.links = LinkChoice::Follow;
    request.detail = Detail::Lists;
    EXPECT_EQ(Run(request), ExitCode::Incomplete);
    EXPECT_TRUE(screen_.Shows("Contenu : 3 fichiers, 2 dossiers")) << Transcript();
    EXPECT_TRUE(screen_.Shows("Éléments absents de l'image : 2"));
    EXPECT_TRUE(screen_.Shows("=   « " + scratch_.Path("photos/again")
        + " » : Ce répertoire est déjà pris : il n'est pas mis une seconde fois."));
    EXPECT_TRUE(
        screen_.Shows("photos/root » : Le lien symbolique mène à un répertoire qui contient"));
}

TEST_F(ImageLinksTest, LinksThatStrictIsoCannotHoldMakeTheImageIncomplete)
{
    scratch_.File("photos/A.TXT");
    std::filesystem::create_symlink("nowhere", scratch_.Path("photos/DEAD"));
    std::filesystem::create_symlink("A.TXT", scratch_.Path("photos/GOOD"));
    ImageRequest request = Request();
    request.options.fileSystems = {.iso9660 = true, .joliet = false, .udf = false};
    request.options.isoLevel = image::IsoLevel::Level1;
    EXPECT_EQ(Run(request), ExitCode::Incomplete);
    EXPECT_NE(Transcript().find("Contenu : 2 fichiers, 0 dossier\n"), std::string::npos);
    EXPECT_TRUE(screen_.Shows("Éléments absents de l'image : 1"));
}

TEST_F(ImageLinksTest, AnImageThatALinkOfTheFolderLeadsToIsNoPartOfIt)
{
    scratch_.File("out.iso", "old image");
    scratch_.Folder("photos");
    std::filesystem::create_symlink(scratch_.Path("out.iso"), scratch_.Path("photos/image"));
    EXPECT_EQ(Run(Request()), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("Contenu : 0 fichier, 0 dossier, 1 lien")) << Transcript();
}

} // namespace velmora::terminal
