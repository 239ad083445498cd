// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::shell {

/// What the rooms of the program know in common. The window (or the terminal's run) owns it, the
/// others get a reference. The values here are those of the start.
struct ProgramState {
    /// Program path of the folder to burn; ends in a backslash once the folder was read.
    QString SourceFolder;
    /// Last component of SourceFolder, without backslashes.
    QString DefaultDiscName;
    /// Index of the recorder chosen, as in the list of recorders.
    qint16 SelectedRecorder = 0;

    /// Bytes that the chosen disc format holds.
    double MediaCapacity = 26843545600;
    /// Bytes of the compilation.
    double TotalSizeBytes = 0;
    /// Bytes that the last detection found free.
    double MediaFreeBytes = 0;

    /// 0: the disc as detected, -1: no usable choice, else the disc type expected: 2 CD-R, 6 DVD+R,
    /// 8 DVD+R dual layer, 18 BD-R.
    qint16 MediaTypeChoice = 0;
    /// 0 Blu-ray, 1 DVD, 2 CD, 3 detected without a recognised name.
    qint16 DiscFormat = 0;

    /// 0: the root pages, 1: the burn pages.
    qint16 WizardStage = 0;
    /// The burn page shown: 0 options, 1 list, 2 burn.
    qint16 BurnPage = 0;

    /// A disc was written since the last start of a run.
    bool BurnDone = false;
    /// The user asked the run to stop.
    bool StopFlag = false;
    /// Program path of the ISO file of the present run.
    QString ImagePath;
};

} // namespace velmora::shell
