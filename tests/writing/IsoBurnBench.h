// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/TemporaryFolder.h"
#include "tests/writing/RunBench.h"
#include "text/PathText.h"

namespace velmora::test {

inline constexpr qint32 kRoomBlocks = 1000;
inline constexpr std::uintmax_t kRoomBytes = 2048 * std::uintmax_t {kRoomBlocks};

inline const std::string kNothingUsable
    = "Le graveur est vide ou bien le média n'est pas vierge ou est "
      "incompatible à la gravure.";
inline const std::string kTooLarge
    = "La place disponible sur le média n'est pas suffisante pour votre projet.";
inline const std::string kQuestion = "Voulez-vous réintroduire un nouveau média ?";

inline const FoundDisc kBlank {.freeBlocks = kRoomBlocks};
inline const FoundDisc kUsed {.isBlank = false, .freeBlocks = kRoomBlocks};
inline const FoundDisc kClosed {
    .isBlank = false, .canBeContinued = false, .freeBlocks = kRoomBlocks};
inline const FoundDisc kEmptyTray {.isMediaSupported = false};

inline const std::string kAsked = "Label14 \"\"\nasks for the image to burn\n";
inline const std::string kStarted = kAsked + kOnlyStopButton + "burn page shown\npump\n";

inline const std::string kIsoConnected
    = "log emptied, \"Connection au graveur...\"\nlog emptied, \"Initialisation...\"\n"
    + kRecorderFound + "log \"Initialisation du graveur...\"\n" + kWriterOpened
    + "log \"Chargement du fichie ISO....\"\n";

inline std::string IsoLooked(int pumps)
{
    const std::string pumped = pumps == 1 ? "pump" : "pump x " + std::to_string(pumps);
    return kPrompted + "pointer 11\n" + pumped + "\npointer 1\nLabel14 \"\"\npump\n" + kWaitShown
        + kWaitHidden;
}

inline const std::string kLookedAtBlank = IsoLooked(5);
inline const std::string kLookedAtUsed = IsoLooked(6);
inline const std::string kLookedAtNothing = IsoLooked(1);
inline const std::string kSpeed = "log \"Vitesse de gravure retenue : Vitesse maximum\"\n";
inline const std::string kOpened = "SHCreateStreamOnFile(ISO, 32)\n";
inline const std::string kSet = "dataWriter1.SetWriteSpeed(-1, False)\n";
inline const std::string kHeld = "recorder.AcquireExclusiveAccess(False, Tamsel)\n";

inline const std::string kIsoWritten = kSpeed + kOpened + kSet + kHeld + R"(mouse captured
pump
companion started
dataWriter1.Write(stream on ISO)
)" + kWriteShown
    + R"(mouse free
BurnButton(2) hidden
pump
companion told to quit
recorder.EjectMedia
)";

inline const std::string kIsoSucceeded = R"(Label14 "Gravure effectuée avec succès."
log "Gravure effectuée avec succès."
recorder.ReleaseExclusiveAccess
stream on ISO released
dataWriter1 released
BurnButton(2) hidden
)";

inline const std::string kIsoAbandoned = kPutBack + "dataWriter1 released\nBurnButton(2) hidden\n";

/// A run that burns an image, of as many bytes as the disc takes.
class IsoBurnBench : public RunBench {
protected:
    IsoBurnBench()
    {
        script.discs = {kBlank};
        MakeIso(kRoomBytes);
    }

    void MakeIso(std::uintmax_t bytes)
    {
        screen.isoFile = text::ToProgramPath(folder.MakeFile("disc.iso", bytes).native());
    }

    /// The transcript of a run, with ISO for the image's path.
    std::string Run()
    {
        std::string run = BurnIso();
        const std::string path = screen.isoFile.toStdString();
        for (auto at = run.find(path); !path.empty() && at != std::string::npos;
             at = run.find(path)) {
            run.replace(at, path.size(), "ISO");
        }
        return run;
    }
    std::string LineOfIso(const std::string& before, const std::string& behind) const
    {
        return before + screen.isoFile.toStdString() + behind;
    }

    const std::string atSearch = kStarted + kIsoConnected + "FileBar hidden\n";
    const std::string wholeRun = atSearch + kLookedAtBlank + kIsoWritten + kIsoSucceeded;
    TemporaryFolder folder;
};

} // namespace velmora::test
