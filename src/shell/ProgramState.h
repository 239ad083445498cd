// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiscChoices.h"
#include "text/Paths.h"

#include <QList>
#include <QString>

namespace velmora::shell {

/// Where the wizard stands.
enum class WizardStage : qint8 { RootPages, BurnPages };

/// The burn pages, in their order (BurnDataContainer1).
enum class WizardPage : qint8 { Options, List, Burn };

/// Bytes that the medium holds as long as no disc format was chosen.
inline constexpr double kCapacityBeforeAnyChoice = 26843545600;

/// The state that the program's rooms share. The window (or the terminal's run) owns it, the others
/// get a reference. The values here are the initial ones.
struct ProgramState {
    /// The folder to burn; ends in a backslash once the folder was read.
    text::ProgramPath SourceFolder;
    /// The hidden entries of SourceFolder, which have no row.
    QList<text::ProgramPath> HiddenEntries;
    /// Last component of SourceFolder, without backslashes.
    QString DefaultDiscName;
    /// Index of the chosen recorder in the list of recorders.
    qint16 SelectedRecorder = 0;

    /// Bytes that the chosen disc format holds.
    double MediaCapacity = kCapacityBeforeAnyChoice;
    /// Bytes of the compilation.
    double TotalSizeBytes = 0;
    /// Bytes that the last detection found free.
    double MediaFreeBytes = 0;

    /// The disc that a burn should find.
    DiscTypeChoice MediaTypeChoice = DiscTypeChoice::AsDetected;
    /// The chosen format, or that of the detected disc.
    shell::DiscFormat DiscFormat = shell::DiscFormat::BluRay;

    shell::WizardStage WizardStage = shell::WizardStage::RootPages;
    /// The burn page shown.
    WizardPage BurnPage = WizardPage::Options;

    /// A disc was written since the last start of a run.
    bool BurnDone = false;
    /// The user asked the run to stop.
    bool StopFlag = false;
    /// The ISO file of the current run.
    text::ProgramPath ImagePath;
};

} // namespace velmora::shell
