// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace velmora::test {

// The building blocks of the runs' transcripts.

inline const std::string kOnlyStopButton = R"(BurnButton(0) hidden
BurnButton(1) hidden
BurnButton(2) shown
)";

inline const std::string kStartButtons = R"(BurnButton(0) shown
BurnButton(1) shown
BurnButton(2) hidden
)";

inline const std::string kRecorderFound = R"(new MsftDiscMaster2
new MsftDiscRecorder2
DiscMaster.Item(0)
)";

inline const std::string kWriterOpened = R"(recorder.InitializeDiscRecorder(id of 0)
new MsftDiscFormat2Data
dataWriter1.Recorder = recorder
dataWriter1.ClientName = Tamsel
)";

inline const std::string kConnected = kOnlyStopButton
    + "pump\nlog emptied, \"Connection au graveur...\"\n" + kRecorderFound
    + "log \"Initialisation du graveur...\"\n" + kWriterOpened;

inline const std::string kConnectedForIsoFile = kOnlyStopButton
    + "pump\nlog emptied, \"Connection au graveur...\"\nlog emptied, \"Initialisation...\"\n"
    + kRecorderFound + kWriterOpened;

/// @param choices  the lines of the configuration that the options decide
inline std::string Configured(const std::string& choices
    = "FSI1.ChooseImageDefaultsForMediaType(2)\nFSI1.FileSystemsToCreate = 3\n")
{
    return R"(log "Début de lecture des fichiers...."
new MsftFileSystemImage
)" + choices
        + R"-(FSI1.WorkingDirectory = \tmp
FSI1.VolumeName = Photos
log "Le titre du disque est : Photos    (ISO_NAME en mode ISO 9660)"
)-";
}

inline const std::string kLetterAdded = R"(Corvane7ProgressBar1 0
Corvane7ProgressBar1 shown
pump
pump
SHCreateStreamOnFile(\home\u\letter.txt, 32)
root.AddFile(letter.txt, stream on \home\u\letter.txt)
stream on \home\u\letter.txt released
Corvane7ProgressBar1 100
pump
)";

inline const std::string kImageMade = R"(FileBar hidden
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
)";

inline const std::string kWaitShown = R"(Corvane7BarWait1 runs
Corvane7BarWait1 shown
Frame3DWait shown
pump
pointer 11
)";

inline const std::string kWaitHidden = R"(pointer 1
Frame3DWait hidden
Corvane7BarWait1 hidden
)";

inline const std::string kPrompt = R"(detection with the record
tray opens
box 65 "Velmora" "Merci de mettre un CD dans le lecteur puis cliquer sur Ok"
)";

inline const std::string kPrompted = kPrompt + "tray closes\n";
inline const std::string kUnprompted = "detection with the record\n";

/// One pass of the media loop up to the status text.
inline std::string Looked(const std::string& prompt, bool isBlank = true)
{
    const std::string pumps = isBlank ? "pump x 5\n" : "pump x 6\n";
    return "pump\n" + kWaitShown + prompt + "pointer 11\n" + pumps + "pointer 1\n" + kWaitHidden;
}

inline std::string Present(const std::string& disc)
{
    return "log \"Média présent dans le lecteur : " + disc + "\"\n";
}

inline std::string Refused(const std::string& caption,
    const std::string& question = "Voulez-vois réintroduire un nouveau média ?")
{
    return "Label14 \"" + caption + "\"\nlog \"" + caption + "\"\nlog \"Abandon !\"\n"
        + "box 36 \"Média non compatible ou invalide\" \"" + caption + "<CR LF><CR LF>" + question
        + "\"\n";
}

inline const std::string kRefusedDrive
    = "Corvane7BarWait1 stops\nCorvane7BarWait1 hidden\nFrame3DWait hidden\n";

inline std::string SpeedLogged(const std::string& multiplier, const std::string& selection)
{
    return "log \"Vitesse de gravure retenue : " + multiplier
        + "x (Sélection utilisateur : " + selection + ") \"\n";
}

/// What a write shows that reports its half and its end.
inline const std::string kWriteShown = R"(dataWriter1 tells of action 4
pump x 101
log "Gravure en cours..."
Label14 "Gravure en cours...<CR LF>Progression :  50,00%  "
Corvane7ProgressBar1 50
pump
pump
dataWriter1 tells of action 6
pump x 101
log "Gravure terminée."
pump
dataWriter1 is done
)";

/// @param settings  what the writer is set to before
inline std::string Written(const std::string& settings = "dataWriter1.SetWriteSpeed(-1, False)\n")
{
    return "result.ImageStream\n" + settings + R"(mouse captured
pump
companion started
dataWriter1.Write(image stream)
)" + kWriteShown
        + R"(mouse free
pump
companion told to quit
recorder.EjectMedia
)";
}

inline const std::string kSucceeded = R"(Label14 "Gravure effectuée avec succès."
log "Gravure effectuée avec succès."
image stream released
FSI1 released
dataWriter1 released
)" + kStartButtons;

inline const std::string kPutBack = R"(companion told to quit
Corvane7ProgressBar1 0
FileBar 0
FileBar hidden
)";

inline const std::string kAbandoned
    = kPutBack + "FSI1 released\ndataWriter1 released\n" + kStartButtons;

inline const std::string kInterrupted = R"(Label14 "Gravure interrompue par l'utilisateur."
log "Gravure interrompue par l'utilisateur."
)";

inline const std::string kStopDemanded
    = R"(Label14 "Arrêt de la gravure demandé... Veuillez patienter..."
log "Interruption du processus de gravure..."
)";

inline const std::string kCancelled = R"(Label14 "Annulation de la gravure par l'utilisateur"
log "Annulation de la gravure par l'utilisateur"
pump
dataWriter1.CancelWrite
)";

inline std::string Failure(const std::string& description, int number)
{
    return "log \"Une erreur est survenue : \"\nlog \"            " + description + " (Erreur n° "
        + std::to_string(number) + ") \"\n";
}

/// A run of the letter to a blank CD-R of which the tray opens first.
inline std::string WholeDiscRun()
{
    return kConnected + Configured() + kLetterAdded + kImageMade + Looked(kPrompted)
        + Present("CD-R") + SpeedLogged("41", "Maximum") + Written() + kSucceeded;
}

} // namespace velmora::test
