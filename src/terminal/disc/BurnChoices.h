// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ProgramState.h"
#include "terminal/arguments/DiscRequest.h"
#include "text/Paths.h"
#include "writing/BurnOptions.h"

namespace velmora::terminal {

/// The options page as the command line filled it in.
class BurnChoices final : public writing::BurnOptions {
public:
    BurnChoices(const BurnRequest& request,
        QString discName,
        text::ProgramPath temporaryDirectory,
        const shell::ProgramState& state);

    writing::DataMode Mode() const override { return mode_; }
    writing::FileSystemOption FileSystem() const override { return fileSystem_; }
    writing::SpeedSelection Speed() const override { return speed_; }
    writing::SessionOption Session() const override { return session_; }
    QString DiscName() const override { return discName_; }
    void SetDiscName(const QString& name) override { discName_ = name; }
    text::ProgramPath TemporaryDirectory() const override { return temporaryDirectory_; }
    bool TakesAnyBytes() const override { return takesAnyBytes_; }
    bool FollowsLinks() const override { return followsLinks_; }
    bool RecordsSums() const override { return recordsSums_; }
    bool KeepsAttributes() const override { return keepsAttributes_; }
    void SetTakesAnyBytes(bool takesThem) { takesAnyBytes_ = takesThem; }
    qint16 RecorderPlace() const override { return state_.SelectedRecorder; }

private:
    QString discName_;
    text::ProgramPath temporaryDirectory_;
    const shell::ProgramState& state_;
    writing::DataMode mode_;
    writing::FileSystemOption fileSystem_;
    writing::SpeedSelection speed_;
    writing::SessionOption session_;
    bool takesAnyBytes_ = false;
    bool followsLinks_;
    bool recordsSums_;
    bool keepsAttributes_;
};

/// What a choice of medium sets in the program's state: the requested type and its capacity.
/// nullptr: any disc.
void ApplyMedium(const Medium* medium, shell::ProgramState& state);

} // namespace velmora::terminal
