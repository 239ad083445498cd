// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/RunBench.h"

namespace velmora::test {

using BurnRunTest = RunBench;

TEST_F(BurnRunTest, ACompilationBecomesADisc)
{
    script.writeEvents = {WriteEvent(0),
        WriteEvent(2),
        WriteEvent(3),
        WriteEvent(4, 0, 8),
        WriteEvent(4, 4, 8),
        WriteEvent(5),
        WriteEvent(6)};

    EXPECT_EQ(Burn(), R"-(BurnButton(0) hidden
BurnButton(1) hidden
BurnButton(2) shown
pump
log emptied, "Connection au graveur..."
new MsftDiscMaster2
new MsftDiscRecorder2
DiscMaster.Item(0)
log "Initialisation du graveur..."
recorder.InitializeDiscRecorder(id of 0)
new MsftDiscFormat2Data
dataWriter1.Recorder = recorder
dataWriter1.ClientName = Tamsel
log "Début de lecture des fichiers...."
new MsftFileSystemImage
FSI1.ChooseImageDefaultsForMediaType(2)
FSI1.FileSystemsToCreate = 3
FSI1.WorkingDirectory = \tmp
FSI1.VolumeName = Photos
log "Le titre du disque est : Photos    (ISO_NAME en mode ISO 9660)"
Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
SHCreateStreamOnFile(\home\u\letter.txt, 32)
root.AddFile(letter.txt, stream on \home\u\letter.txt)
stream on \home\u\letter.txt released
Corvane7ProgressBar1 100
pump
FileBar hidden
Label14 "Lecture des fichiers terminée"
Corvane7ProgressBar1 100
pump
log "Lecture des fichiers terminée"
log "Création de l'image disque...."
log "         Veuillez patienter......."
pump
FSI1.CreateResultImage
log "Création de l'image disque réalisée avec succès..."
Label14 "Création de l'image disque réalisée avec succès..."
pump
pump
Corvane7BarWait1 runs
Corvane7BarWait1 shown
Frame3DWait shown
pump
pointer 11
detection with the record
tray opens
box 65 "Velmora" "Merci de mettre un CD dans le lecteur puis cliquer sur Ok"
tray closes
pointer 11
pump x 5
pointer 1
pointer 1
Frame3DWait hidden
Corvane7BarWait1 hidden
log "Média présent dans le lecteur : CD-R"
log "Vitesse de gravure retenue : 41x (Sélection utilisateur : Maximum) "
result.ImageStream
dataWriter1.SetWriteSpeed(-1, False)
mouse captured
pump
companion started
dataWriter1.Write(image stream)
dataWriter1 tells of action 0
pump x 101
log "Vérification du média... "
pump
dataWriter1 tells of action 2
pump x 101
log "Initialisation du graveur... "
Corvane7ProgressBar1 0
Label14 "Configuration du graveur"
pump
dataWriter1 tells of action 3
pump x 101
log "Calibration de la puissance du laser... "
Corvane7ProgressBar1 0
pump
dataWriter1 tells of action 4
pump x 101
log "Gravure en cours..."
Label14 "Gravure en cours...<CR LF>Progression :  0,00%  "
Corvane7ProgressBar1 0
pump
pump
dataWriter1 tells of action 4
pump x 101
Label14 "Gravure en cours...<CR LF>Progression :  50,00%  "
Corvane7ProgressBar1 50
pump
pump
dataWriter1 tells of action 5
pump x 101
log "Ecriture des pistes d'entrée-sortie... "
pump
dataWriter1 tells of action 6
pump x 101
log "Gravure terminée."
pump
dataWriter1 is done
mouse free
pump
companion told to quit
recorder.EjectMedia
Label14 "Gravure effectuée avec succès."
log "Gravure effectuée avec succès."
image stream released
FSI1 released
dataWriter1 released
BurnButton(0) shown
BurnButton(1) shown
BurnButton(2) hidden
)-");
    EXPECT_TRUE(state.BurnDone);
    EXPECT_EQ(state.MediaFreeBytes, 359'847.0 * 2048);
}

TEST_F(BurnRunTest, ASecondRunGoesLikeTheFirst)
{
    EXPECT_EQ(Burn(), WholeDiscRun());
    EXPECT_EQ(Burn(), WholeDiscRun());
}

TEST_F(BurnRunTest, ACompilationBecomesAnIsoFile)
{
    const std::string savedImage = R"(log "Préparation à la sauvegarde de l'image disque..."
pump
result.ImageStream
SHCreateStreamOnFile(\home\u\disc.iso, 4097)
log "Sauvegarde de l'image disque..."
log "         Veuillez patienter......."
pump
image stream.CopyTo(stream on \home\u\disc.iso, 20480000)
log "Sauvegarde de l'image disque réalisée avec succès  dans le fichier: "
log "           /home/u/disc.iso"
Label14 "Sauvegarde de l'image disque réalisée avec succès"
pump
stream on \home\u\disc.iso released
image stream released
FSI1 released
dataWriter1 released
)";
    const std::string run = "asks for the file to write\n" + kConnectedForIsoFile + Configured()
        + kLetterAdded + kImageMade + savedImage + kStartButtons;

    EXPECT_EQ(SaveIso(), run);
    EXPECT_FALSE(state.BurnDone);
    EXPECT_EQ(state.ImagePath.Text(), u"\\home\\u\\disc.iso"_s);
    EXPECT_EQ(SaveIso(), run);
}

TEST_F(BurnRunTest, GivingUpTheFileDialogChangesNothingMore)
{
    state.BurnDone = true;
    state.StopFlag = true;
    state.ImagePath = text::ProgramPath(u"\\earlier.iso"_s);
    screen.isoFile.clear();

    EXPECT_EQ(SaveIso(), "asks for the file to write\n");
    EXPECT_EQ(state.ImagePath.Text(), u""_s);
    EXPECT_FALSE(state.BurnDone);
    EXPECT_TRUE(state.StopFlag);
}

TEST_F(BurnRunTest, ADiscRunEmptiesTheImagePathAndClearsTheFlags)
{
    state.BurnDone = true;
    state.StopFlag = true;
    state.ImagePath = text::ProgramPath(u"\\earlier.iso"_s);
    transcript.At("mouse captured", [this] { EXPECT_FALSE(state.BurnDone); });

    EXPECT_EQ(Burn(), WholeDiscRun());
    EXPECT_EQ(state.ImagePath.Text(), u""_s);
    EXPECT_TRUE(state.BurnDone);
    EXPECT_FALSE(state.StopFlag);
}

TEST_F(BurnRunTest, WithoutARecorderBothRunsCountAsInterrupted)
{
    options.recorder = -1;
    const std::string run = kOnlyStopButton + "pump\n" + kPutBack + kStartButtons + kInterrupted;

    EXPECT_EQ(Burn(), run);
    EXPECT_EQ(SaveIso(), "asks for the file to write\n" + run);
    EXPECT_FALSE(state.BurnDone);
}

TEST_F(BurnRunTest, AnEmptyListIsToldWithABeepAndCountsAsInterrupted)
{
    list.Clear();
    const std::string told = R"(beep
log emptied, " "
log "Aucun fichier n'a été sélectionné pour la gravure !"
log " "
log "****************************************************"
log "     GRAVURE ABANDONNÉE"
log "****************************************************"
)";
    const std::string end
        = told + kPutBack + "dataWriter1 released\n" + kStartButtons + kInterrupted;

    EXPECT_EQ(Burn(), kConnected + end);
    EXPECT_EQ(SaveIso(), "asks for the file to write\n" + kConnectedForIsoFile + end);
}

TEST_F(BurnRunTest, AnImageOfTwoGibibytesCantBeSaved)
{
    script.totalBlocks = 1'048'576;

    const std::string run = SaveIso();

    EXPECT_TRUE(run.ends_with(Failure("Dépassement de capacité", 6)
        + "log \"            La fenêtre n'écrit que des fichiers ISO de moins de 2\u00A0Gio : "
          "« velmora-cli image » en écrit de plus grands.\"\n"
        + kAbandoned))
        << run;
    EXPECT_FALSE(transcript.Holds("image stream.CopyTo(stream on \\home\\u\\disc.iso, 20480000)"));
}

TEST_F(BurnRunTest, AnEmptyNameIsFilledOnceAndStays)
{
    options.discName.clear();
    Burn();
    EXPECT_EQ(transcript.Count("DiscName = 20260309-070504"), 1);
    clock.Pause(60);
    Burn();
    EXPECT_EQ(transcript.Count("FSI1.VolumeName = 20260309-070504"), 1);
}

TEST_F(BurnRunTest, AnEntryThatFailsIsLoggedAndTheRestIsBurned)
{
    script.unopenable = u"\\home\\u\\letter.txt"_s;

    Burn();

    EXPECT_TRUE(transcript.Holds("log \"Impossible d'ajouter à l'image disque le fichier :\""));
    EXPECT_TRUE(transcript.Holds("log \"      /home/u/letter.txt\""));
    EXPECT_TRUE(state.BurnDone);
}

} // namespace velmora::test
