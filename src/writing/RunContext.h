// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CompilationList.h"
#include "imapi/Mastering.h"
#include "recorder/RecorderState.h"
#include "runtime/Clock.h"
#include "shell/ProgramState.h"
#include "writing/BurnOptions.h"
#include "writing/BurnScreen.h"
#include "writing/ReadingDisplay.h"
#include "writing/StopCompanion.h"
#include "writing/WritingDisplay.h"

namespace velmora::writing {

/// What a run depends on. All of it outlives the run.
struct RunContext {
    BurnScreen& screen;
    BurnOptions& options;
    shell::ProgramState& state;
    const compilation::CompilationList& ListFile;
    imapi::Mastering& mastering;
    runtime::Clock& clock;
    ReadingDisplay& reading;
    recorder::RecorderState& recorders;
    StopCompanion& companion;
    WritingDisplay& progress;
};

} // namespace velmora::writing
