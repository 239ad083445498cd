// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/FileChanges.h"
#include "tests/writing/VirtualRunBench.h"

namespace velmora::test {

using virtualdrive::DiscPreset;
using virtualdrive::FaultKind;

using VirtualRunsTest = VirtualRunBench;

TEST_F(VirtualRunsTest, ACompilationIsBurnedAndTheTrayOpened)
{
    Burn();

    EXPECT_EQ(Log(), R"-("Connection au graveur..."
"Initialisation du graveur..."
"Début de lecture des fichiers...."
"Le titre du disque est : Photos    (PHOTOS en mode ISO 9660)"
"Lecture des fichiers terminée"
"Création de l'image disque...."
"         Veuillez patienter......."
"Création de l'image disque réalisée avec succès..."
"Média présent dans le lecteur : CD-R"
"Vitesse de gravure retenue : 41x (Sélection utilisateur : Maximum) "
"Vérification du média... "
"Initialisation du graveur... "
"Calibration de la puissance du laser... "
"Gravure en cours..."
"Ecriture des pistes d'entrée-sortie... "
"Gravure terminée."
"Vérification des données."
"         Veuillez patienter......."
"Gravure effectuée avec succès."
)-");
    EXPECT_TRUE(state.BurnDone);
    EXPECT_TRUE(Now().trayOpen);
    EXPECT_EQ(Sessions(), 1);
    EXPECT_FALSE(now.disc->closed);
    const std::string bytes = DiscBytes();
    EXPECT_EQ(bytes.substr(32'769, 5), "CD001");
    EXPECT_NE(bytes.find("dear all"), std::string::npos);
    EXPECT_NE(bytes.find(std::string(kSeaBytes, 'w')), std::string::npos);
    EXPECT_TRUE(transcript.Holds("Corvane7ProgressBar1 100"));
}

TEST_F(VirtualRunsTest, WithoutMultisessionTheDiscIsClosed)
{
    options.session = writing::SessionOption::CloseDisc;
    Burn();
    EXPECT_TRUE(state.BurnDone);
    EXPECT_TRUE(Now().disc->closed);
}

TEST_F(VirtualRunsTest, EveryKindOfRecordableDiscIsBurned)
{
    const std::vector<std::pair<shell::DiscTypeChoice, QString>> kinds {
        {shell::DiscTypeChoice::CdR, u"cd-r"_s},
        {shell::DiscTypeChoice::CdR, u"cd-rw"_s},
        {shell::DiscTypeChoice::DvdPlusR, u"dvd+r"_s},
        {shell::DiscTypeChoice::DvdPlusR, u"dvd-r"_s},
        {shell::DiscTypeChoice::DvdPlusR, u"dvd+rw"_s},
        {shell::DiscTypeChoice::DvdPlusR, u"dvd-rw"_s},
        {shell::DiscTypeChoice::DvdPlusR, u"dvd-ram"_s},
        {shell::DiscTypeChoice::DvdPlusRDualLayer, u"dvd+r-dl"_s},
        {shell::DiscTypeChoice::BdR, u"bd-r"_s},
        {shell::DiscTypeChoice::BdR, u"bd-re"_s}};
    for (const auto& [choice, kind] : kinds) {
        ASSERT_TRUE(virtualdrive::FindMedium(kind)) << kind.toStdString();
        state.MediaTypeChoice = choice;
        options.fileSystem = choice == shell::DiscTypeChoice::BdR
            ? writing::FileSystemOption::Udf
            : writing::FileSystemOption::Joliet;
        Insert(kind);
        Burn();
        EXPECT_TRUE(state.BurnDone) << kind.toStdString() << '\n' << Log();
        EXPECT_NE(DiscBytes().find("dear all"), std::string::npos) << kind.toStdString();
    }
}

TEST_F(VirtualRunsTest, AFileThatIsRewrittenMeanwhileIsBurnedAndTold)
{
    const auto rewrite = [this] { Rewrite(folder / "letter.txt", "dear you"); };
    transcript.AtNth("log \"Création de l'image disque réalisée avec succès...\"", 1, rewrite);
    const writing::RunReport report = writing::BurnRun(Context()).Run(writing::BurnTarget::Disc);
    EXPECT_EQ(report.ending, writing::RunEnding::Done);
    EXPECT_EQ(report.comparison.end, imapi::ComparisonEnd::Same) << "with what was read";
    EXPECT_EQ(report.changedSources, QList {text::ProgramPath(Path("letter.txt"))});
    EXPECT_TRUE(Log().ends_with("\"Attention : modifié pendant la gravure, le disque porte ce qui "
                                "en a été lu : "
        + (folder / "letter.txt").native() + "\"\n\"Gravure effectuée avec succès.\"\n"))
        << Log();
    EXPECT_NE(DiscBytes().find("dear you"), std::string::npos);
}

TEST_F(VirtualRunsTest, AFileThatIsCutAfterItWasReadDoesNoHarmToTheComparison)
{
    transcript.AtNth("log \"Vérification des données.\"", 1, [this] {
        std::filesystem::resize_file(folder / "sea.bin", 10);
    });
    const writing::RunReport report = writing::BurnRun(Context()).Run(writing::BurnTarget::Disc);
    EXPECT_EQ(report.comparison.end, imapi::ComparisonEnd::Same);
    EXPECT_EQ(report.changedSources, QList<text::ProgramPath>());
}

TEST_F(VirtualRunsTest, AFileThatIsReplacedMeanwhileFailsByName)
{
    transcript.AtNth("log \"Création de l'image disque réalisée avec succès...\"", 1, [this] {
        WriteFile("other", "dear all");
        std::filesystem::rename(folder / "other", folder / "letter.txt");
    });
    Burn();
    ExpectFailure("« " + (folder / "letter.txt").native()
        + " » : Le fichier a été remplacé par un autre. (Erreur n° -1062555352)");
}

TEST_F(VirtualRunsTest, AFileThatIsRewrittenWhileAnImageIsSavedIsTold)
{
    const auto rewrite = [this] { Rewrite(folder / "letter.txt", "dear you"); };
    transcript.AtNth("log \"Sauvegarde de l'image disque...\"", 1, rewrite);
    screen.isoFile = Path("disc.iso");
    const writing::RunReport report = writing::BurnRun(Context()).Run(writing::BurnTarget::IsoFile);
    EXPECT_EQ(report.ending, writing::RunEnding::Done);
    EXPECT_EQ(report.changedSources, QList {text::ProgramPath(Path("letter.txt"))});
    EXPECT_TRUE(Log().ends_with(
        "\"Attention : modifié pendant la lecture, l'image porte ce qui en a été lu : "
        + (folder / "letter.txt").native() + "\"\n"))
        << Log();
}

TEST_F(VirtualRunsTest, ADiscThatHoldsDataIsRefused)
{
    for (const DiscPreset preset : {DiscPreset::Appendable, DiscPreset::Closed, DiscPreset::Full}) {
        Insert(u"cd-r", preset);
        state.TotalSizeBytes = 0;
        const std::string before = DiscBytes();
        Burn();
        EXPECT_FALSE(state.BurnDone);
        EXPECT_TRUE(transcript.Holds("log \"Le média n'est pas vierge.\"")) << Log();
        EXPECT_EQ(DiscBytes(), before);
    }
    state.TotalSizeBytes = kSeaBytes;
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, AnEmptyDriveIsRefused)
{
    drives.TakeOut(u"A"_s);
    Burn();
    EXPECT_TRUE(Log().ends_with(
        "\"Le graveur est vide ou le média est incompatible à la gravure.\"\n\"Abandon !\"\n"));
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    ExpectAGoodBurn();
}

// An empty drive has only these words.
TEST_F(VirtualRunsTest, ADriveThatCannotBeAskedSaysWhy)
{
    virtualdrive::VirtualDriveSource other(drives, clock, quietPump);
    const drive::DriveRef held = other.Open(u"virtual:A"_s);
    held->Lock(false);
    Burn();
    EXPECT_TRUE(Log().ends_with(
        "\"Le graveur est vide ou le média est incompatible à la gravure.\"\n\"Abandon !\"\n"
        "\"            Le graveur est verrouillé par une autre application : fermez-la, puis "
        "recommencez.\"\n"))
        << Log();
    held->Unlock();
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, AStopInTheMiddleCancelsTheWrite)
{
    transcript.AtNth("log \"Gravure en cours...\"", 1, [this] { Stop(); });
    Burn();
    EXPECT_TRUE(Log().ends_with("\"Interruption du processus de gravure...\"\n"
                                "\"Annulation de la gravure par l'utilisateur\"\n"))
        << Log();
    EXPECT_FALSE(state.BurnDone);
    EXPECT_EQ(Sessions(), 0);
    EXPECT_FALSE(Now().trayOpen);
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, TheCompanionStopsTheWrite)
{
    transcript.AtNth("log \"Gravure en cours...\"", 1, [this] { companion.isStopAsked = true; });
    Burn();
    EXPECT_TRUE(Log().ends_with("\"Annulation de la gravure par l'utilisateur\"\n")) << Log();
    EXPECT_TRUE(transcript.Holds("companion told to quit"));
    EXPECT_EQ(Sessions(), 0);
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, APulledDiscIsToldAndTheNextRunWorks)
{
    Plan(FaultKind::Removed, 500);
    Burn();
    ExpectFailure("Aucun média dans le lecteur : insérez un disque. (Erreur n° -1062600190)");
    EXPECT_FALSE(state.BurnDone);
    EXPECT_FALSE(transcript.Holds("mouse free"));
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, AWriteErrorIsToldAndTheNextRunWorks)
{
    for (const qint64 sector : {0, 1, 1000}) {
        Insert(u"cd-r");
        Plan(FaultKind::MediumError, sector);
        Burn();
        ExpectFailure(
            "Erreur d'écriture irrécupérable : prenez un autre disque ou une vitesse plus "
            "basse. (Erreur n° -1062599935)");
        EXPECT_FALSE(state.BurnDone);
        ExpectAGoodBurn();
    }
}

TEST_F(VirtualRunsTest, AProtectedDiscIsToldAndTheNextRunWorks)
{
    drives.Insert(
        u"A"_s, {.medium = virtualdrive::FindMedium(u"cd-r"), .writeProtected = true}, clock);
    Burn();
    ExpectFailure("Le média est protégé en écriture : levez la protection ou changez de disque. "
                  "(Erreur n° -1062600183)");
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, AnUnpluggedDriveIsToldAndWorksAgainWhenItIsBack)
{
    Plan(FaultKind::Unplugged, 500);
    Burn();
    ExpectFailure("Le graveur n'est plus là : vérifiez son branchement. (Erreur n° -2147024841)");
    Burn();
    EXPECT_NE(Log().find("Une erreur est survenue : "), std::string::npos) << Log();
    EXPECT_FALSE(state.BurnDone);
    drives.SetPlugged(u"A"_s, true);
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, AFileThatShrinksAfterItWasAddedFailsTheWrite)
{
    transcript.AtNth("companion started", 1, [this] { WriteFile("sea.bin", "ebb"); });
    Burn();
    EXPECT_NE(Log().find("sea.bin"), std::string::npos) << Log();
    EXPECT_NE(Log().find("Une erreur est survenue : "), std::string::npos) << Log();
    EXPECT_FALSE(state.BurnDone);
    WriteFile("sea.bin", std::string(kSeaBytes, 'w'));
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, AnImageIsSavedAndBurned)
{
    SaveIso("disc.iso");
    EXPECT_FALSE(state.BurnDone);
    const auto bytes = std::filesystem::file_size(folder / "disc.iso");
    ASSERT_GT(bytes, kSeaBytes);

    BurnIso("disc.iso");

    EXPECT_EQ(Log(), R"("Initialisation..."
"Initialisation du graveur..."
"Chargement du fichie ISO...."
"Vitesse de gravure retenue : Vitesse maximum"
"Vérification du média... "
"Initialisation du graveur... "
"Calibration de la puissance du laser... "
"Gravure en cours..."
"Ecriture des pistes d'entrée-sortie... "
"Gravure terminée."
"Vérification des données."
"         Veuillez patienter......."
"Gravure effectuée avec succès."
)");
    EXPECT_TRUE(Now().trayOpen);
    std::ifstream in(folder / "disc.iso", std::ios::binary);
    const std::string image {std::istreambuf_iterator<char>(in), {}};
    EXPECT_EQ(DiscBytes().substr(0, image.size()), image);
}

TEST_F(VirtualRunsTest, AnImageThatFillsTheDiscExactlyIsBurnedAndOneByteMoreIsRefused)
{
    constexpr qint64 kRoom = 3000;
    const auto insertSmallDisc = [&] {
        Insert(u"cd-r");
        drives.Folder(u"A"_s).Change(
            [](virtualdrive::Description& changed) { changed.disc->capacity = kRoom; });
    };
    insertSmallDisc();
    folder.MakeFile("exact.iso", kRoom * 2048);
    BurnIso("exact.iso");
    EXPECT_TRUE(Log().ends_with("\"Gravure effectuée avec succès.\"\n")) << Log();
    EXPECT_EQ(state.MediaFreeBytes, kRoom * 2048);
    EXPECT_EQ(Sessions(), 1);

    insertSmallDisc();
    folder.MakeFile("larger.iso", kRoom * 2048 + 1);
    BurnIso("larger.iso");
    EXPECT_TRUE(Log().ends_with("votre projet.\"\n\"Abandon !\"\n")) << Log();
    EXPECT_EQ(Sessions(), 0);
}

TEST_F(VirtualRunsTest, AnImageThatIsNoWholeNumberOfSectorsIsRefusedByTheWriter)
{
    folder.MakeFile("odd.iso", 2049);
    BurnIso("odd.iso");
    ExpectFailure("Taille du flux non valide : une image ISO est faite de secteurs entiers de 2048 "
                  "octets. (Erreur n° -1062599677)");
    EXPECT_EQ(Sessions(), 0);
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, AnImageOf2GibibytesMeetsTheLimitOfTheDiscAtTheWrite)
{
    folder.MakeFile("dvd.iso", std::uintmax_t {1} << 31);
    BurnIso("dvd.iso");
    ExpectFailure("L'image est trop grande pour le média : prenez un disque de plus grande "
                  "capacité. (Erreur n° -1062599676)");
    EXPECT_EQ(Sessions(), 0);
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, AStoppedImageBurnLeavesTheDriveToTheNextRun)
{
    SaveIso("disc.iso");
    transcript.AtNth("log \"Gravure en cours...\"", 1, [this] { Stop(); });
    BurnIso("disc.iso");
    EXPECT_TRUE(Log().ends_with("\"Annulation de la gravure par l'utilisateur\"\n")) << Log();
    ExpectAGoodBurn();
    Insert(u"cd-r");
    BurnIso("disc.iso");
    EXPECT_TRUE(Log().ends_with("\"Gravure effectuée avec succès.\"\n")) << Log();
}

TEST_F(VirtualRunsTest, AFailedImageBurnLeavesTheDriveToTheNextRun)
{
    SaveIso("disc.iso");
    Plan(FaultKind::LossOfStreaming, 800);
    BurnIso("disc.iso");
    ExpectFailure("Données fournies trop lentement au graveur : choisissez une vitesse plus basse. "
                  "(Erreur n° -1062599936)");
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, ADriveThatIsInUseElsewhereIsToldAndWorksWhenItIsFree)
{
    SaveIso("disc.iso");
    virtualdrive::VirtualDriveSource other(drives, clock, quietPump);
    const drive::DriveRef held = other.Open(u"virtual:A"_s);
    transcript.AtNth(
        "log \"Vitesse de gravure retenue : Vitesse maximum\"", 1, [&] { held->Lock(false); });
    BurnIso("disc.iso");
    ExpectFailure("Le graveur est verrouillé par une autre application : fermez-la, puis "
                  "recommencez. (Erreur n° -1062600176)");
    held->Unlock();
    ExpectAGoodBurn();
}

} // namespace velmora::test
