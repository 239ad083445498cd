// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/FileChanges.h"
#include "tests/writing/VirtualRunBench.h"

namespace velmora::test {

using virtualdrive::DiscPreset;
using virtualdrive::FaultKind;

class VirtualRunsTest : public VirtualRunBench {
protected:
    /// The run failed, and its log ends with these words.
    void ExpectFailure(const std::string& words)
    {
        const std::string log = Log();
        const std::string end = "\"Une erreur est survenue : \"\n\"            " + words + " \"\n";
        EXPECT_TRUE(log.ends_with(end)) << log;
        EXPECT_FALSE(state.BurnDone);
    }
    writing::RunReport RunBurn()
    {
        transcript.Clear();
        return writing::BurnRun(Context()).Run(writing::BurnTarget::Disc);
    }
};

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
    EXPECT_EQ(report.changedSources, QStringList {Path("letter.txt")});
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
    EXPECT_EQ(report.changedSources, QStringList());
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
    EXPECT_EQ(report.changedSources, QStringList {Path("letter.txt")});
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

// The words for an empty drive are all that such a drive had.
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
    transcript.AtNth("log \"Gravure en cours...\"", 1, [this] { companion.tool = u"Undo"_s; });
    Burn();
    EXPECT_TRUE(Log().ends_with("\"Annulation de la gravure par l'utilisateur\"\n")) << Log();
    EXPECT_EQ(companion.tool, u"Quit"_s);
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

TEST_F(VirtualRunsTest, ADiscThatIsHurtIsAFailureThatNamesTheFile)
{
    const auto hurt = [this] {
        Now();
        const std::string file = now.disc->sectorFile.toStdString();
        std::fstream disc(
            folder / ("recorders/A/" + file), std::ios::in | std::ios::out | std::ios::binary);
        disc.seekp(1000 * 2048 + 5);
        disc.put('?');
    };
    transcript.AtNth("log \"Vérification des données.\"", 1, hurt);
    Burn();
    ExpectFailure("La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
                  "inutilisable. (Erreur n° -1062600697)");
    EXPECT_NE(Log().find("\"Erreur : le disque ne contient pas ce qui a été gravé ; première "
                         "différence au secteur 1000, 2 Mo identiques avant cela.\"\n"
                         "\"Fichiers abîmés :\"\n"
                         "\"            sea.bin (à partir de l'octet "),
        std::string::npos)
        << Log();
    EXPECT_FALSE(Now().trayOpen);
    ExpectAGoodBurn();
}

TEST_F(VirtualRunsTest, ASectorThatCannotBeReadIsAFailureToo)
{
    drives.Plan(u"A"_s, {.kind = FaultKind::ReadError, .sector = 700, .lasting = true});
    Burn();
    ExpectFailure("La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
                  "inutilisable. (Erreur n° -1062600697)");
    EXPECT_NE(Log().find("Erreur : le disque est illisible au secteur 700, "), std::string::npos);
    EXPECT_NE(Log().find("            sea.bin (à partir de l'octet "), std::string::npos) << Log();
}

TEST_F(VirtualRunsTest, AnAlteredByteAndASwallowedSectorAreFoundWithTheirFile)
{
    for (const FaultKind kind : {FaultKind::Altered, FaultKind::Swallowed}) {
        Plan(kind, 700);
        const writing::RunReport report = RunBurn();
        EXPECT_EQ(report.ending, writing::RunEnding::Failed);
        ASSERT_EQ(report.comparison.places.size(), 1U);
        EXPECT_EQ(report.comparison.places.front(), (imapi::HurtPlace {700, 700, false}));
        ASSERT_EQ(report.comparison.hurtFiles.size(), 1U);
        EXPECT_EQ(report.comparison.hurtFiles.front().path, u"sea.bin"_s);
        EXPECT_NE(Log().find("première différence au secteur 700, "), std::string::npos) << Log();
        ExpectAGoodBurn();
        Insert(u"cd-r");
    }
}

TEST_F(VirtualRunsTest, AnAlteredByteOfAnImageIsFoundToo)
{
    SaveIso("disc.iso");
    Plan(FaultKind::Altered, 700);
    BurnIso("disc.iso");
    ExpectFailure("La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
                  "inutilisable. (Erreur n° -1062600697)");
    EXPECT_NE(Log().find("première différence au secteur 700, "), std::string::npos) << Log();
}

/// The disc is whole, and nothing is said against it.
TEST_F(VirtualRunsTest, ADiscOrADriveThatIsNoLongerThereIsNotComparedAndNotCalledBad)
{
    const std::vector<std::pair<FaultKind, qint64>> faults {{FaultKind::Swapped, 0},
        {FaultKind::Swapped, 700},
        {FaultKind::GoneAtRead, 0},
        {FaultKind::GoneAtRead, 700}};
    for (const auto& [kind, sector] : faults) {
        Plan(kind, sector);
        const writing::RunReport report = RunBurn();
        const bool isThere = kind == FaultKind::Swapped; // else its tray can't be opened either
        EXPECT_EQ(report.ending, isThere ? writing::RunEnding::Done : writing::RunEnding::Failed);
        EXPECT_EQ(report.comparison.end, imapi::ComparisonEnd::Impossible) << Log();
        EXPECT_TRUE(report.comparison.hurtFiles.empty());
        EXPECT_NE(Log().find("\"Attention : rien n'a été comparé. "), std::string::npos) << Log();
        EXPECT_NE(Log().find("mais rien ne dit qu'il est bon."), std::string::npos) << Log();
        EXPECT_EQ(Log().find("Erreur : le disque"), std::string::npos) << Log();
        drives.ClearFaults(u"A"_s);
        drives.Close(u"A"_s, clock);
        ExpectAGoodBurn();
        Insert(u"cd-r");
    }
}

TEST_F(VirtualRunsTest, AnotherRecordedDiscIsNotComparedAndNotCalledBad)
{
    transcript.AtNth("log \"Vérification des données.\"", 1, [this] {
        const std::string name = Now().disc->sectorFile.toStdString();
        const std::string file = folder / ("recorders/A/" + name);
        const std::string other(std::filesystem::file_size(file), 'o');
        std::ofstream(file, std::ios::binary) << other;
    });
    const writing::RunReport report = RunBurn();
    EXPECT_EQ(report.comparison.end, imapi::ComparisonEnd::Impossible);
    EXPECT_NE(Log().find("Le disque du lecteur n'est pas celui qui vient d'être gravé."),
        std::string::npos)
        << Log();
}

TEST_F(VirtualRunsTest, ATrayThatIsOpenedMeanwhileIsNoHurtDisc)
{
    transcript.AtNth("log \"Vérification des données.\"", 1, [this] { drives.Eject(u"A"_s); });
    Burn();
    EXPECT_TRUE(state.BurnDone);
    EXPECT_NE(
        Log().find("\"Attention : rien n'a été comparé. Aucun média dans le lecteur : insérez "
                   "un disque.\"\n"
                   "\"Le disque est gravé en entier, mais rien ne dit qu'il est bon.\"\n"
                   "\"Gravure effectuée avec succès.\"\n"),
        std::string::npos)
        << Log();
}

TEST_F(VirtualRunsTest, AStopOfTheComparisonLeavesAWholeDisc)
{
    transcript.AtNth("log \"Vérification des données.\"", 1, [this] { Stop(); });
    Burn();
    EXPECT_TRUE(Log().ends_with("\"Annulation de la gravure par l'utilisateur\"\n"
                                "\"Comparaison arrêtée à votre demande : rien n'a été comparé.\"\n"
                                "\"Le disque est gravé en entier, mais rien ne dit qu'il est "
                                "bon.\"\n"
                                "\"Gravure interrompue par l'utilisateur.\"\n"))
        << Log();
    EXPECT_EQ(screen.status, u"Gravure interrompue par l'utilisateur."_s);
    EXPECT_EQ(Sessions(), 1);
    EXPECT_TRUE(Now().trayOpen);
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
