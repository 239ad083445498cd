// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TrayJob.h"

#include "tests/support/FakeClock.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "tray/SampleDisc.h"
#include "tray/TrayTexts.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace velmora::tray {

using namespace Qt::StringLiterals;
using virtualdrive::DiscPreset;
using virtualdrive::FaultKind;
using virtualdrive::FindMedium;

class TrayJobTest : public testing::Test {
protected:
    TrayReply Run(const decltype(TrayRequest::action)& action, const QString& recorder = {})
    {
        return RunTrayJob({recorder, action}, recorders, clock, [this](const QString& question) {
            questions += question;
            return agrees;
        });
    }
    QString Done(const decltype(TrayRequest::action)& action)
    {
        const TrayReply reply = Run(action);
        EXPECT_EQ(reply.code, TrayExit::Done) << reply.text.toStdString();
        return reply.text;
    }

    test::TemporaryFolder folder;
    test::FakePump pump;
    test::FakeClock clock {pump, QDateTime::fromMSecsSinceEpoch(1'700'000'000'000)};
    virtualdrive::Recorders recorders {folder.Path().string(), SampleImage};
    bool agrees = false; ///< the user who is asked
    QStringList questions;
};

TEST_F(TrayJobTest, ARecorderIsMadeUsedAndListed)
{
    EXPECT_EQ(Done(List {}), u"Aucun graveur virtuel."_s);
    EXPECT_EQ(Done(Create {}), u"graveur-1 : tiroir fermé, vide"_s);
    EXPECT_EQ(Done(Insert {{.medium = FindMedium(u"dvd+r")}}),
        u"graveur-1 : tiroir fermé, DVD+R (vierge)"_s);
    EXPECT_EQ(Done(Eject {}), u"graveur-1 : tiroir ouvert, DVD+R (vierge)"_s);
    EXPECT_EQ(Done(Close {}), u"graveur-1 : tiroir fermé, DVD+R (vierge)"_s);
    EXPECT_EQ(Done(Create {}), u"graveur-2 : tiroir fermé, vide"_s);
    EXPECT_EQ(Done(List {}),
        u"graveur-1 : tiroir fermé, DVD+R (vierge)\ngraveur-2 : tiroir fermé, vide"_s);
}

TEST_F(TrayJobTest, ARecordedDiscHoldsASmallVolume)
{
    Done(Create {u"A"_s});
    EXPECT_EQ(
        Done(Insert {{.medium = FindMedium(u"cd-rom")}}), u"A : tiroir fermé, CD-ROM (fermé)"_s);
    const virtualdrive::Description now = recorders.Show(u"A"_s);
    std::ifstream sectors(recorders.Folder(u"A"_s).SectorPath(now.disc->sectorFile));
    std::string volume(2048, ' ');
    sectors.seekg(16 * 2048);
    ASSERT_TRUE(sectors.read(volume.data(), 2048));
    EXPECT_EQ(volume.substr(1, 5), "CD001");
    EXPECT_EQ(volume.substr(40, 8), "VELMORA ");
}

TEST_F(TrayJobTest, WithoutANameTheOnlyOneIsMeant)
{
    EXPECT_EQ(Run(Eject {}).code, TrayExit::Failed);
    EXPECT_TRUE(Run(Eject {}).text.contains(u"velmora-tray create"));
    Done(Create {u"A"_s});
    EXPECT_EQ(Run(Eject {}).code, TrayExit::Done);
    Done(Create {u"B"_s});
    const TrayReply unclear = Run(Eject {});
    EXPECT_EQ(unclear.code, TrayExit::Failed);
    EXPECT_TRUE(unclear.text.contains(u"(A, B)"));
    EXPECT_EQ(Run(Eject {}, u"B"_s).code, TrayExit::Done);
    EXPECT_TRUE(recorders.Show(u"B"_s).trayOpen);
    EXPECT_EQ(Run(Eject {}, u"C"_s).text, u"Erreur : Il n'y a pas de graveur virtuel « C »."_s);
}

TEST_F(TrayJobTest, WhatIsSpecialAboutADiscIsTold)
{
    Done(Create {u"A"_s});
    EXPECT_EQ(Done(Insert {{.medium = FindMedium(u"cd-rw"),
                  .preset = DiscPreset::Appendable,
                  .writeProtected = true}}),
        u"A : tiroir fermé, CD-RW (ouvert, protégé en écriture)"_s);
    EXPECT_EQ(Done(Insert {{.medium = FindMedium(u"bd-re"), .upsideDown = true}}),
        u"A : tiroir fermé, BD-RE (réinscriptible, vide, à l'envers)"_s);
    EXPECT_EQ(
        Done(Insert {{.medium = FindMedium(u"dvd-rom")}}), u"A : tiroir fermé, DVD-ROM (fermé)"_s);
    EXPECT_EQ(Done(Insert {{.medium = FindMedium(u"inconnu")}}),
        u"A : tiroir fermé, Disque inconnu (non reconnu par le graveur)"_s);
    EXPECT_EQ(Done(TakeOut {}), u"A : tiroir ouvert, vide"_s);
}

TEST_F(TrayJobTest, FaultsArePlannedShownAndForgotten)
{
    Done(Create {u"A"_s});
    EXPECT_EQ(Done(PlanFault {{.kind = FaultKind::MediumError, .sector = 12, .lasting = true}}),
        u"A : panne prévue, erreur d'écriture au secteur 12, durable"_s);
    EXPECT_TRUE(Done(Show {}).contains(u"Panne prévue : erreur d'écriture au secteur 12, durable"));
    EXPECT_EQ(Done(Plug {false}), u"A : débranché"_s);
    Done(ClearFaults {});
    EXPECT_EQ(Done(List {}), u"A : tiroir fermé, vide"_s);
    EXPECT_FALSE(Done(Show {}).contains(u"Panne"));
}

TEST_F(TrayJobTest, ShowTellsAll)
{
    Done(Create {u"A"_s});
    Done(Timing {true});
    Done(Insert {{.medium = FindMedium(u"dvd+r")}});
    const QString path = QString::fromStdString(folder.Path().string()) + u"/A"_s;
    EXPECT_EQ(Done(Show {}),
        u"Graveur : A (VELMORA VIRTUAL BD-RE 1.00)\nDossier : %1\nDurées : réelles\n"
        "Tiroir : fermé\nDisque : DVD+R, vierge\n"
        "Espace : 0 octets utilisés, 4,70 Go libres\nSecteurs : %1/disc-1.iso"_s.arg(path));
}

TEST_F(TrayJobTest, AFailureIsToldInFrench)
{
    Done(Create {u"A"_s});
    Done(PlanFault {{.kind = FaultKind::TrayStuck}});
    const TrayReply stuck = Run(Insert {{.medium = FindMedium(u"cd-r")}});
    EXPECT_EQ(stuck.code, TrayExit::Failed);
    EXPECT_TRUE(stuck.text.endsWith(u"Le tiroir ne se ferme pas.")) << stuck.text.toStdString();
    EXPECT_EQ(Run(Create {u"A"_s}).text, u"Erreur : Il y a déjà un graveur virtuel « A »."_s);
}

TEST_F(TrayJobTest, ARecorderIsDeletedWhenItsPersonAgrees)
{
    Done(Create {u"A"_s});
    Done(Insert {{.medium = FindMedium(u"cd-r")}});
    const TrayReply refused = Run(Delete {}, u"A"_s);
    EXPECT_EQ(refused.code, TrayExit::Failed);
    EXPECT_EQ(refused.text, u"Erreur : Rien n'a été supprimé, faute d'accord."_s);
    EXPECT_EQ(questions,
        QStringList {u"Supprimer le graveur virtuel et son disque ? "
                     "(A : tiroir fermé, CD-R (80 min) (vierge))"_s});
    EXPECT_EQ(recorders.Names(), QStringList {u"A"_s});

    agrees = true;
    EXPECT_EQ(Run(Delete {}, u"A"_s).text, u"A : supprimé"_s);
    EXPECT_TRUE(recorders.Names().isEmpty());
}

TEST_F(TrayJobTest, ADeletionThatWasAgreedToAsksNobody)
{
    Done(Create {u"A"_s});
    EXPECT_EQ(Run(Delete {.isAgreed = true}, u"A"_s).code, TrayExit::Done);
    EXPECT_EQ(Run(Delete {.isAgreed = true}, u"A"_s).text,
        u"Erreur : Il n'y a pas de graveur virtuel « A »."_s);
    EXPECT_TRUE(questions.isEmpty());
}

TEST_F(TrayJobTest, WhatADiscHoldsIsToldByItsSectorsAsToTheProgramsThatBurn)
{
    Done(Create {u"A"_s});
    Done(Insert {{.medium = FindMedium(u"dvd+rw")}});
    virtualdrive::RecorderFolder recorder = recorders.Folder(u"A"_s);
    const std::string sectors = recorder.SectorPath(recorders.Show(u"A"_s).disc->sectorFile);
    // A killed write: sectors, but no session.
    recorder.Change([](virtualdrive::Description& now) { now.disc->formatted = true; });
    std::ofstream(sectors) << std::string(40'000, 'x');
    EXPECT_EQ(Done(List {}), u"A : tiroir fermé, DVD+RW (réinscriptible, écrit)"_s);
    // A killed erase: no sectors any more, but still a session.
    Done(Insert {{.medium = FindMedium(u"bd-re"), .preset = DiscPreset::Closed}});
    const std::string others = recorder.SectorPath(recorders.Show(u"A"_s).disc->sectorFile);
    std::filesystem::resize_file(others, 0);
    EXPECT_EQ(Done(List {}), u"A : tiroir fermé, BD-RE (réinscriptible, vide)"_s);
    std::filesystem::remove(others);
    EXPECT_EQ(
        Done(List {}), u"A : tiroir fermé, BD-RE (réinscriptible, écrit, secteurs illisibles)"_s);
}

TEST_F(TrayJobTest, ATerminalObeysNothingInALine)
{
    EXPECT_EQ(TextForTerminal(u"\nA\u001B[2J\u009B\u202E\nB\n"_s), "A␛[2J��\nB\n");
}

TEST_F(TrayJobTest, ARecorderThatCantBeReadIsListedAll)
{
    Done(Create {u"A"_s});
    folder.MakeFile("B/recorder.json", 3);
    EXPECT_TRUE(Done(List {}).contains(u"B : La description du graveur virtuel est illisible : "));
}

} // namespace velmora::tray
