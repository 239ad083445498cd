// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Whole runs whose disc is damaged, exchanged or gone between its write and the comparison.
#include "drive/PublishedCodes.h"
#include "tests/support/PathLiterals.h"
#include "tests/writing/VirtualRunBench.h"

namespace velmora::test {

using namespace path_literals;
using virtualdrive::FaultKind;

using VirtualComparisonTest = VirtualRunBench;

TEST_F(VirtualComparisonTest, ADiscThatIsHurtIsAFailureThatNamesTheFile)
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

TEST_F(VirtualComparisonTest, ASectorThatCannotBeReadIsAFailureToo)
{
    drives.Plan(u"A"_s, {.kind = FaultKind::ReadError, .sector = 700, .lasting = true});
    Burn();
    ExpectFailure("La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
                  "inutilisable. (Erreur n° -1062600697)");
    EXPECT_NE(Log().find("Erreur : le disque est illisible au secteur 700, "), std::string::npos);
    EXPECT_NE(Log().find("            sea.bin (à partir de l'octet "), std::string::npos) << Log();
}

TEST_F(VirtualComparisonTest, ASectorThatTheDriveReadsOnlySlowlyIsGood)
{
    drives.Plan(u"A"_s, {.kind = FaultKind::SlowRead, .sector = 700, .lasting = true});
    const writing::RunReport report = Burn();
    EXPECT_EQ(report.ending, writing::RunEnding::Done);
    EXPECT_EQ(report.comparison.end, imapi::ComparisonEnd::Same) << Log();
}

TEST_F(VirtualComparisonTest, AnAlteredByteAndASwallowedSectorAreFoundWithTheirFile)
{
    for (const FaultKind kind : {FaultKind::Altered, FaultKind::Swallowed}) {
        Plan(kind, 700);
        const writing::RunReport report = Burn();
        EXPECT_EQ(report.ending, writing::RunEnding::Failed);
        ASSERT_EQ(report.comparison.places.size(), 1U);
        EXPECT_EQ(report.comparison.places.front(), (imapi::HurtPlace {700, 700, false}));
        ASSERT_EQ(report.comparison.hurtFiles.size(), 1U);
        EXPECT_EQ(report.comparison.hurtFiles.front().path, u"sea.bin"_disc);
        EXPECT_NE(Log().find("première différence au secteur 700, "), std::string::npos) << Log();
        ExpectAGoodBurn();
        Insert(u"cd-r");
    }
}

TEST_F(VirtualComparisonTest, AnAlteredByteOfAnImageIsFoundToo)
{
    SaveIso("disc.iso");
    Plan(FaultKind::Altered, 700);
    BurnIso("disc.iso");
    ExpectFailure("La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
                  "inutilisable. (Erreur n° -1062600697)");
    EXPECT_NE(Log().find("première différence au secteur 700, "), std::string::npos) << Log();
}

/// The disc is complete, and no fault is reported.
TEST_F(VirtualComparisonTest, ADiscOrADriveThatIsNoLongerThereIsNotComparedAndNotCalledBad)
{
    const std::vector<std::pair<FaultKind, qint64>> faults {{FaultKind::Swapped, 0},
        {FaultKind::Swapped, 700},
        {FaultKind::GoneAtRead, 0},
        {FaultKind::GoneAtRead, 700}};
    for (const auto& [kind, sector] : faults) {
        Plan(kind, sector);
        const writing::RunReport report = Burn();
        const bool isThere = kind == FaultKind::Swapped; // else its tray can't be opened either
        EXPECT_EQ(report.ending, writing::RunEnding::Done);
        EXPECT_EQ(report.isEjected, isThere);
        EXPECT_EQ(report.errorNumber, isThere ? 0 : drive::hresult::kDeviceGone);
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

TEST_F(VirtualComparisonTest, AnotherRecordedDiscIsNotComparedAndNotCalledBad)
{
    transcript.AtNth("log \"Vérification des données.\"", 1, [this] {
        const std::string name = Now().disc->sectorFile.toStdString();
        const std::string file = folder / ("recorders/A/" + name);
        const std::string other(std::filesystem::file_size(file), 'o');
        std::ofstream(file, std::ios::binary) << other;
    });
    const writing::RunReport report = Burn();
    EXPECT_EQ(report.comparison.end, imapi::ComparisonEnd::Impossible);
    EXPECT_NE(Log().find("Le disque du lecteur n'est pas celui qui vient d'être gravé."),
        std::string::npos)
        << Log();
}

TEST_F(VirtualComparisonTest, ATrayThatIsOpenedMeanwhileIsNoHurtDisc)
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

TEST_F(VirtualComparisonTest, AStopOfTheComparisonLeavesAWholeDisc)
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

} // namespace velmora::test
