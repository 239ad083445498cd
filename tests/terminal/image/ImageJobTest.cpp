// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/terminal/image/ImageJobBench.h"

#include "tests/terminal/MediumOfOption.h"

#include <unistd.h>

namespace velmora::terminal {

TEST_F(ImageJobTest, AWholeRunReadsFromTopToBottom)
{
    scratch_.File("photos/A.TXT", std::string(5000, 'a'));
    scratch_.File("photos/SUB/B.TXT", "b");
    ImageRequest request = Request();
    request.options.fileSystems = {.iso9660 = true, .joliet = false, .udf = false};
    ASSERT_EQ(Run(request), ExitCode::Done);
    const std::uintmax_t bytes = std::filesystem::file_size(scratch_.Path("out.iso"));
    EXPECT_EQ(bytes % 2048, 0U);
    const auto& lines = screen_.Lines();
    ASSERT_EQ(lines.size(), 13U) << Transcript();
    EXPECT_EQ(lines[0], "! Lecture du dossier…");
    EXPECT_EQ(lines[1], "! Lecture du dossier : 2 fichiers, 1 dossier, 5 001 octets");
    EXPECT_EQ(lines[2], "! Préparation de l'image…");
    EXPECT_TRUE(lines[3].starts_with("! Préparation de l'image : "));
    EXPECT_EQ(lines[4], "! Écriture de l'image…");
    EXPECT_TRUE(lines[5].starts_with("! Écriture de l'image : "));
    EXPECT_EQ(lines[6], "= Image : " + scratch_.Path("out.iso"));
    EXPECT_TRUE(lines[7].starts_with("= Taille : "));
    EXPECT_EQ(lines[8], "= Contenu : 2 fichiers, 1 dossier");
    EXPECT_EQ(lines[9], "= Systèmes de fichiers : ISO 9660 (niveau 3, Rock Ridge)");
    EXPECT_EQ(lines[10], "= Nom du volume : « photos » (ISO 9660 : « PHOTOS »)");
    EXPECT_EQ(lines[11], "= Noms modifiés : 0");
    EXPECT_EQ(lines[12], "= Éléments absents de l'image : 0");
}

TEST_F(ImageJobTest, HiddenEntriesAreTaken)
{
    scratch_.File("photos/.hidden/.file");
    ASSERT_EQ(Run(Request()), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("Contenu : 1 fichier, 1 dossier")) << Transcript();
}

TEST_F(ImageJobTest, AnEmptyFolderIsRefused)
{
    scratch_.Folder("photos");
    EXPECT_EQ(Run(Request()), ExitCode::Failed);
    EXPECT_EQ(LastLine(),
        "! Erreur : Le dossier « D/photos » est vide : mettez-y ce qui doit aller sur le disque.");
    ExpectNothingWritten();
}

TEST_F(ImageJobTest, AFolderOfWhichNothingCanBeTakenIsRefusedWithTheReasons)
{
    scratch_.Folder("photos");
    ASSERT_EQ(mkfifo(scratch_.Path("photos/tube").c_str(), 0600), 0);
    EXPECT_EQ(Run(Request()), ExitCode::Failed);
    EXPECT_TRUE(screen_.Shows("photos/tube » : Ce n'est ni un fichier ni un répertoire"))
        << Transcript();
    EXPECT_EQ(LastLine(),
        "! Erreur : Le dossier « D/photos » ne contient rien qui puisse être pris : mettez-y ce "
        "qui doit aller "
        "sur le disque.");
    ExpectNothingWritten();
}

TEST_F(ImageJobTest, AMissingFolderIsRefusedBeforeAnythingIsRead)
{
    EXPECT_EQ(Run(Request()), ExitCode::Failed);
    EXPECT_EQ(
        Transcript(), "! Erreur : Le dossier « D/photos » n'existe pas : vérifiez son chemin.\n");
}

TEST_F(ImageJobTest, AnImageInsideItsOwnFolderIsNotPartOfItself)
{
    scratch_.File("photos/a.txt");
    ImageRequest request = Request();
    request.output = text::NativePath(scratch_.Path("photos/out.iso"));
    ASSERT_EQ(Run(request), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("Contenu : 1 fichier, 0 dossier")) << Transcript();
    EXPECT_TRUE(Exists("photos/out.iso"));
    EXPECT_FALSE(Exists("photos/out.iso.part"));
}

TEST_F(ImageJobTest, AnImageOfTheFolderItselfIsNotReplacedByItsSuccessor)
{
    scratch_.File("photos/a.txt");
    scratch_.File("photos/out.iso", "old image");
    ImageRequest request = Request();
    request.output = text::NativePath(scratch_.Path("photos/out.iso"));
    EXPECT_EQ(Run(request), ExitCode::Failed);
    EXPECT_EQ(LastLine(),
        "! Erreur : L'image « D/photos/out.iso » fait partie du dossier à mettre dans l'image : "
        "déplacez-la, "
        "supprimez-la ou choisissez un autre nom.");
    EXPECT_EQ(scratch_.Content("photos/out.iso"), "old image");
}

TEST_F(ImageJobTest, AnOlderImageOfAnotherNameIsAnOrdinaryFile)
{
    scratch_.File("photos/old.iso", "old image");
    ImageRequest request = Request();
    request.output = text::NativePath(scratch_.Path("photos/new.iso"));
    EXPECT_EQ(Run(request), ExitCode::Done) << Transcript();
    EXPECT_TRUE(screen_.Shows("Contenu : 1 fichier"));
}

TEST_F(ImageJobTest, AFileWhoseNameEndsInPartIsAFileLikeAnyOther)
{
    scratch_.File("photos/out.iso.part", "somebody's own");
    scratch_.File("out.iso.part", "somebody's own");
    EXPECT_EQ(Run(Request()), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("Contenu : 1 fichier")) << Transcript();
    EXPECT_EQ(scratch_.Content("out.iso.part"), "somebody's own");
}

TEST_F(ImageJobTest, AFileThatIsNoImageIsReplacedOnlyOnDemand)
{
    scratch_.File("photos/a.txt");
    scratch_.File("out.iso", "my thesis");
    ImageRequest request = Request();
    request.replacing = Replacing::Images;
    EXPECT_EQ(Run(request), ExitCode::Failed);
    EXPECT_EQ(LastLine(),
        "! Erreur : « D/out.iso » existe et n'est pas une image : choisissez un autre nom, ou "
        "ajoutez --replace pour le remplacer.");
    EXPECT_EQ(scratch_.Content("out.iso"), "my thesis");
    EXPECT_EQ(Run(Request()), ExitCode::Done);
    EXPECT_EQ(Run(request), ExitCode::Done) << "it is an image now";
}

TEST_F(ImageJobTest, AnOldImageElsewhereIsReplaced)
{
    scratch_.File("photos/a.txt");
    scratch_.File("out.iso", "old image");
    ASSERT_EQ(Run(Request()), ExitCode::Done);
    EXPECT_GT(std::filesystem::file_size(scratch_.Path("out.iso")), 30000U);
}

TEST_F(ImageJobTest, AnImageLargerThanTheMediumIsRefusedWithBothSizes)
{
    const std::string large = scratch_.File("photos/large.bin", "");
    ASSERT_EQ(truncate(large.c_str(), 900'000'000), 0);
    ImageRequest request = Request();
    request.medium = MediumOfOption("cd");
    request.options.fileSystems = request.medium->fileSystems;
    EXPECT_EQ(Run(request), ExitCode::Failed);
    const std::string last = LastLine();
    EXPECT_TRUE(last.starts_with("! Erreur : L'image (90")) << last;
    EXPECT_TRUE(last.ends_with(
        ") ne tient pas sur le disque, CD (737,0 Mo) : retirez des fichiers du dossier ou "
        "choisissez --medium dvd. Rien n'a été écrit."))
        << last;
    EXPECT_TRUE(partialFiles_.empty());
    ExpectNothingWritten();
}

TEST_F(ImageJobTest, ALongCdHasToBeNamed)
{
    ASSERT_EQ(truncate(scratch_.File("photos/long.bin", "").c_str(), 750'000'000), 0);
    ImageRequest request = Request();
    for (const bool isNamed : {false, true}) {
        request.medium = MediumOfOption(isNamed ? "cd-90" : "cd");
        request.options.fileSystems = request.medium->fileSystems;
        EXPECT_EQ(Run(request), isNamed ? ExitCode::Done : ExitCode::Failed) << Transcript();
    }
}

TEST_F(ImageJobTest, AnImageThatNoFormattedBluRayHoldsIsTold)
{
    const std::string large = scratch_.File("photos/large.bin", "");
    ImageRequest request = Request();
    request.medium = MediumOfOption("bd");
    request.options.fileSystems = request.medium->fileSystems;
    ASSERT_EQ(truncate(large.c_str(), 24'000'000'000), 0);
    EXPECT_EQ(Run(request), ExitCode::Done);
    EXPECT_FALSE(screen_.Shows("BD-RE")) << Transcript();
    ASSERT_EQ(truncate(large.c_str(), 24'500'000'000), 0);
    EXPECT_EQ(Run(request), ExitCode::Done);
    EXPECT_TRUE(
        screen_.Shows(") tient sur un BD-R, mais pas sur un BD-RE de même taille, qui n'a que "
                      "24,2 Go une fois formaté."))
        << Transcript();
}

TEST_F(ImageJobTest, EntriesThatCantBeTakenAreCountedAndEndWithTheirOwnCode)
{
    scratch_.File("photos/a.txt");
    ASSERT_EQ(mkfifo(scratch_.Path("photos/pipe").c_str(), 0600), 0);
    ASSERT_EQ(mkfifo(scratch_.Path("photos/tube").c_str(), 0600), 0);
    EXPECT_EQ(Run(Request()), ExitCode::Incomplete);
    EXPECT_TRUE(screen_.Shows("Éléments absents de l'image : 2")) << Transcript();
    EXPECT_EQ(LastLine(), "= La liste s'obtient avec l'option --report.");
    EXPECT_TRUE(Exists("out.iso"));
}

TEST_F(ImageJobTest, TheReportNamesWhatIsMissing)
{
    scratch_.File("photos/a.txt");
    ASSERT_EQ(mkfifo(scratch_.Path("photos/tube").c_str(), 0600), 0);
    ImageRequest request = Request();
    request.detail = Detail::Lists;
    EXPECT_EQ(Run(request), ExitCode::Incomplete);
    EXPECT_TRUE(screen_.Shows("=   « " + scratch_.Path("photos/tube")
        + " » : Ce n'est ni un fichier ni un répertoire (tube, socket ou périphérique)."))
        << Transcript();
}

TEST_F(ImageJobTest, NamesOfAnyBytesAreShownHarmlessly)
{
    scratch_.File("photos/caf\xE9.txt");
    scratch_.File("photos/\x1b[2J\nx\x7f");
    ASSERT_EQ(mkfifo(scratch_.Path("photos/\x1b]0;x\x07").c_str(), 0600), 0);
    ImageRequest request = Request();
    request.detail = Detail::Lists;
    EXPECT_EQ(Run(request), ExitCode::Incomplete);
    for (const auto& line : screen_.Lines())
        for (const char c : line)
            EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20 && c != 0x7F) << line;
    EXPECT_TRUE(screen_.Shows("caf\uFFFD.txt -> ")) << Transcript();
    EXPECT_TRUE(screen_.Shows("photos/␛]0;x␇ »")) << Transcript();
}

TEST_F(ImageJobTest, AStopDuringTheScanEndsWithoutAnImage)
{
    scratch_.File("photos/a.txt");
    EXPECT_EQ(Run(Request(), [] { return true; }), ExitCode::Stopped);
    EXPECT_EQ(LastLine(), "! Arrêté à votre demande : aucune image n'a été faite.");
    ExpectNothingWritten();
}

TEST_F(ImageJobTest, AStopDuringTheWritingLeavesNoHalfImage)
{
    scratch_.File("photos/a.bin", std::string(1'000'000, 'a'));
    scratch_.File("out.iso", "old image");
    bool stop = false;
    screen_.When("! Écriture de l'image…", [&] { stop = true; });
    EXPECT_EQ(Run(Request(), [&] { return stop; }), ExitCode::Stopped);
    EXPECT_EQ(LastLine(), "! Arrêté à votre demande : aucune image n'a été faite.");
    EXPECT_FALSE(Exists("out.iso.part"));
    EXPECT_EQ(scratch_.Content("out.iso"), "old image");
    EXPECT_EQ(partialFiles_, (std::vector<std::string> {"", ""})) << "it has no name";
}

TEST_F(ImageJobTest, ATerminalSeesOneLineOfProgressAndThenTheResult)
{
    scratch_.File("photos/a.txt");
    TranscriptScreen terminal(ProgressStyle::OneLine);
    ImageJob job(Request(), {.screen = terminal});
    ASSERT_EQ(job.Run(), ExitCode::Done);
    bool results = false;
    for (const auto& line : terminal.Lines()) {
        results = results || line.starts_with("= ");
        EXPECT_TRUE(results ? line.starts_with("= ") : line.starts_with("~ ")) << line;
    }
    EXPECT_TRUE(results);
}

TEST_F(ImageJobTest, TheSumsOfTheFilesAreListedOnDemand)
{
    scratch_.File("photos/a.txt", "x");
    ImageRequest request = Request();
    request.recordsSums = true;
    EXPECT_EQ(Run(request), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("Contenu : 2 fichiers")) << Transcript();
    EXPECT_NE(scratch_.Content("out.iso").find(
                  "2d711642b726b04401627ca9fbac32f5c8530fb1903cc4db02258717921a4881  a.txt\n"),
        std::string::npos);
}

TEST_F(ImageJobTest, SumsThatTheFolderHasAlreadyAreKeptAndTold)
{
    scratch_.File("photos/SHA256SUMS", "mine");
    ImageRequest request = Request();
    request.recordsSums = true;
    EXPECT_EQ(Run(request), ExitCode::Done);
    EXPECT_TRUE(screen_.Shows("! Attention : le dossier a déjà un « SHA256SUMS »")) << Transcript();
    EXPECT_TRUE(screen_.Shows("Contenu : 1 fichier")) << Transcript();
}

/// What happens to a file between the scan and the moment when it is written.
class ChangingSourceTest : public ImageJobTest {
protected:
    void ExpectRefusal(
        const std::function<void(const std::string&)>& change, const std::string& reason)
    {
        scratch_.File("photos/a.txt");
        const std::string file = scratch_.File("photos/b.bin", std::string(100'000, 'b'));
        scratch_.File("out.iso", "old image");
        screen_.When("! Écriture de l'image…", [&] { change(file); });
        EXPECT_EQ(Run(Request()), ExitCode::Failed);
        EXPECT_EQ(LastLine(), "! Erreur : « D/photos/b.bin » : " + reason);
        EXPECT_FALSE(Exists("out.iso.part"));
        EXPECT_EQ(scratch_.Content("out.iso"), "old image");
    }
};

TEST_F(ChangingSourceTest, AFileThatShrinksIsNamed)
{
    ExpectRefusal([](const std::string& file) { std::filesystem::resize_file(file, 5000); },
        "Le fichier a changé de taille. Attendez que plus rien ne change dans le dossier, puis "
        "recommencez.");
}

TEST_F(ChangingSourceTest, AFileThatIsRewrittenIsTakenAsItIsReadAndTold)
{
    scratch_.File("photos/a.txt");
    const std::string file = scratch_.File("photos/b.bin", std::string(100'000, 'b'));
    const std::string content(100'000, 'n');
    screen_.When("! Écriture de l'image…", [&] { test::Rewrite(file, content); });
    ImageRequest request = Request();
    request.detail = Detail::Lists;
    EXPECT_EQ(Run(request), ExitCode::Incomplete);
    EXPECT_NE(Transcript().find("= Fichiers modifiés pendant la lecture, enregistrés tels qu'ils "
                                "ont été lus : 1\n=   D/photos/b.bin\n"),
        std::string::npos)
        << Transcript();
    EXPECT_NE(scratch_.Content("out.iso").find(content), std::string::npos);
}

TEST_F(ChangingSourceTest, AFileThatGrowsIsTakenAsItWasAndTold)
{
    const std::string file = scratch_.File("photos/b.bin", std::string(100'000, 'b'));
    screen_.When("! Écriture de l'image…", [&] { test::Rewrite(file, std::string(200'000, 'n')); });
    EXPECT_EQ(Run(Request()), ExitCode::Incomplete);
    EXPECT_TRUE(screen_.Shows("tels qu'ils ont été lus : 1")) << Transcript();
    EXPECT_EQ(LastLine(), "= La liste s'obtient avec l'option --report.");
    EXPECT_NE(scratch_.Content("out.iso").find(std::string(100'000, 'n')), std::string::npos);
}

TEST_F(ChangingSourceTest, AFileThatIsReplacedIsNamed)
{
    const std::string other = scratch_.File("other", std::string(100'000, 'o'));
    ExpectRefusal([&](const std::string& file) { std::filesystem::rename(other, file); },
        "Le fichier a été remplacé par un autre. Attendez que plus rien ne change dans le dossier, "
        "puis recommencez.");
}

TEST_F(ChangingSourceTest, AFileThatBecomesAPipeIsNamed)
{
    ExpectRefusal(
        [](const std::string& file) {
            std::filesystem::remove(file);
            EXPECT_EQ(mkfifo(file.c_str(), 0600), 0);
        },
        "Ce n'est ni un fichier ni un répertoire (tube, socket ou périphérique).");
}

TEST_F(ChangingSourceTest, AFileThatVanishesIsNamed)
{
    ExpectRefusal([](const std::string& file) { std::filesystem::remove(file); },
        "Fichier ou répertoire introuvable. (introuvable) Attendez que plus rien ne change dans le "
        "dossier, puis "
        "recommencez.");
}

TEST_F(ChangingSourceTest, AFileThatBecomesUnreadableIsNamed)
{
    if (geteuid() == 0) GTEST_SKIP() << "the superuser may read everything";
    ExpectRefusal([](const std::string& file) { chmod(file.c_str(), 0); },
        "Ouverture du fichier impossible. (droits insuffisants) Vérifiez vos droits de lecture.");
}

} // namespace velmora::terminal
